// What a program of Qt alone takes to show a tab dialog with as many widgets as a page of ours has: the
// measure for the start of the sheet. Shows it, takes its picture, and ends.
#include <QtWidgets>

namespace {

void Place(QWidget* widget, int x, int y, int width, int height) { widget->setGeometry(x, y, width, height); }

void FillPage(QWidget* page)
{
    for (int i = 0; i < 4; ++i) Place(new QGroupBox(QString("Group %1").arg(i), page), 10 + i * 120, 10, 110, 300);
    for (int i = 0; i < 8; ++i) Place(new QRadioButton(QString("Choice %1").arg(i), page), 20, 40 + i * 24, 100, 20);
    for (int i = 0; i < 3; ++i) {
        auto* combo = new QComboBox(page);
        for (int row = 0; row < 5; ++row) combo->addItem(QString("Row %1").arg(row));
        Place(combo, 140, 40 + i * 30, 100, 23);
    }
    for (int i = 0; i < 4; ++i) Place(new QLabel(QString("Label %1").arg(i), page), 260, 40 + i * 24, 100, 20);
    Place(new QCheckBox("Check", page), 380, 40, 100, 20);
    Place(new QPushButton("Default", page), 380, 70, 100, 23);
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    QDialog dialog;
    auto* layout = new QVBoxLayout(&dialog);
    auto* tabs = new QTabWidget(&dialog);
    auto* page = new QWidget(tabs);
    page->setMinimumSize(520, 370);
    FillPage(page);
    tabs->addTab(page, "Page");
    layout->addWidget(tabs);
    layout->addWidget(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply |
                                           QDialogButtonBox::Help));
    dialog.show();
    return argc > 1 && dialog.grab().save(argv[1]) ? 0 : 1;
}
