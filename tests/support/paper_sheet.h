// The document sheet with the Paper page in front, on a record of the test's own, and what the page shows in
// short lines that can stand in tables.
#pragma once

#include "pages/paper_fit.h"
#include "settings/list_rows.h"
#include "settings/model_tables.h"
#include "tests/support/custom_papers.h"
#include "tests/support/watched_sheet.h"

namespace testing_support {

inline const std::vector<CustomPaperEntry> FormAndCard = {Entry(257, u"Form", 0, 2100, 2970),
                                                          Entry(258, u"Card", 1, 800, 1100, 8)};

// What the Setup page leaves behind before the Paper page is created, in a process that has shown no sheet yet.
inline void StandInForSetup(const DriverDevMode& record)
{
    for (int row = 0; row < SourceRowCount; ++row)
        SourceRows[row].code = static_cast<int>(BinTable[static_cast<std::size_t>(row)].code);
    SelectedSource = record.dmDefaultSource;
    SelectedMedia = record.dmMediaIndex;
    MediaIndex = SelectedMedia;
    MediaChanging = SelectedPaperRow = 0;
    FitOn = 0;
}

class PaperSheet : public WatchedSheet {
  public:
    explicit PaperSheet(const Prepare& prepare = {}, const std::vector<CustomPaperEntry>& papers = {},
                        int country = UnitedStates, const Furnish& furnish = {})
        : WatchedSheet(
              u"Paper", {},
              [prepare](DriverDevMode& record) {
                  if (prepare) prepare(record);
                  StandInForSetup(record);
              },
              [&](TestMachine& machine) {
                  if (!papers.empty()) StorePapers(machine, papers, TestPrinter);
                  if (furnish) furnish(machine);
              },
              testing_support::Machine::InCountry(country))
    {
    }

    PaperSheet& GoAwayAndComeBack()
    {
        return ChangeElsewhere([](DriverDevMode&) {});
    }
    PaperSheet& ChangeElsewhere(const Prepare& change)
    {
        WatchedSheet::ChangeElsewhere(change);
        return *this;
    }
    // "xFOs 100 | 2 100": Fit to Paper checked (-: not); Fit to Paper, output size and scaling enabled (small
    // letters: not), the text of the scaling; mode and zoom of the record.
    std::string Fit()
    {
        return Mark(IDC_FIT_TO_PAPER) + Letter('F', IDC_FIT_TO_PAPER) + Letter('O', IDC_OUTPUT_SIZE) +
               Letter('S', IDC_SCALING, IDC_SCALING_SPIN) + " " + Shown(IDC_SCALING) + " |" +
               Recorded({"dmFitToPaper", "dmZoom"});
    }
    // "N 2 Rc Px | 2 1 1": copies enabled and their text; radios enabled, c collated or u uncollated checked; Proof
    // Print enabled and checked; copies, collation and Proof Print of the record.
    std::string Copies()
    {
        const std::string chosen = Checked(IDC_COLLATED) ? "c" : "u";
        const bool one = Checked(IDC_COLLATED) != Checked(IDC_UNCOLLATED);
        return Letter('N', IDC_COPIES) + " " + Shown(IDC_COPIES) + " " + Letter('R', IDC_UNCOLLATED, IDC_COLLATED) +
               (one ? chosen : "?") + " " + Letter('P', IDC_PROOF_PRINT) + Mark(IDC_PROOF_PRINT) + " |" +
               Recorded({"dmCopies", "dmCollateMode", "dmProofPrint"});
    }
    // "on XY 5 -7 | 1 5 -7": which radio is checked, both fields with their arrows enabled, their texts; the record.
    std::string Shift()
    {
        return std::string(Checked(IDC_SHIFT_ON) ? "on " : "off ") + Letter('X', IDC_SHIFT_X, IDC_SHIFT_X_SPIN) +
               Letter('Y', IDC_SHIFT_Y, IDC_SHIFT_Y_SPIN) + " " + Shown(IDC_SHIFT_X) + " " + Shown(IDC_SHIFT_Y) + " |" +
               Recorded({"dmImageShiftOn", "dmImageShiftX", "dmImageShiftY"});
    }
    // The one of these lines that a number field belongs to.
    std::string LineOf(int field) { return field == IDC_SCALING ? Fit() : field == IDC_COPIES ? Copies() : Shift(); }
    std::string Shown(int control) { return platform::ToUtf8(Text(control)); }
    // Item data of the selected row, -1 without one.
    LPARAM Code(int list)
    {
        const int selection = Selection(list);
        return selection < 0 ? -1 : ItemData(list).at(static_cast<std::size_t>(selection));
    }

  private:
    std::string Recorded(std::initializer_list<const char*> fields)
    {
        std::string values;
        for (const char* field : fields) values += " " + std::to_string(GetField(Settings(), field));
        return values;
    }
    std::string Mark(int control) { return Checked(control) ? "x" : "-"; }
    // "?" if the two controls differ.
    std::string Letter(char letter, int control, int other = 0)
    {
        const bool enabled = Enabled(control);
        if (other != 0 && Enabled(other) != enabled) return "?";
        return {enabled ? letter : static_cast<char>(std::tolower(letter))};
    }
};

}  // namespace testing_support
