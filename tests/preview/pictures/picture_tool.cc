// preview_pictures: renews the pictures of the tests, or shows the gallery.
#include <QDir>
#include <cstdio>
#include <cstring>

#include "preview_pictures.h"

using namespace preview_test;

namespace {

bool Save(const QImage& picture, const QString& file)
{
    if (picture.save(file)) return true;
    std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
    return false;
}

// Old, new and difference beside each other in changes, and the new one in kept. Only what differs is written.
int Renew(const QString& kept, const QString& changes)
{
    if (!QDir().mkpath(kept) || !QDir().mkpath(changes)) return 1;
    int changed = 0;
    for (const Reference& reference : References()) {
        const QString name = reference.name, file = kept + "/" + name + ".png";
        const QImage before(file), after = Paint(reference.record, Fonts::BuiltIn);
        if (!before.isNull() && before.convertToFormat(after.format()) == after) continue;
        ++changed;
        std::printf("%s %s\n", before.isNull() ? "new:    " : "changed:", reference.name);
        const QString shown = changes + "/" + name;
        if (!before.isNull()) {
            const QImage difference = Difference(before, after);
            if (!Save(before, shown + "-old.png")) return 1;
            if (!difference.isNull() && !Save(difference, shown + "-difference.png")) return 1;
        }
        if (!Save(after, shown + "-new.png") || !Save(after, file)) return 1;
    }
    if (changed == 0) std::puts("All pictures are as they were.");
    return 0;
}

}  // namespace

int main(int count, char** words)
{
    if (count == 4 && std::strcmp(words[1], "renew") == 0) return Renew(words[2], words[3]);
    if (count == 3 && std::strcmp(words[1], "gallery") == 0) return Save(Gallery(), words[2]) ? 0 : 1;
    std::fprintf(stderr, "usage: %s renew FOLDER CHANGES | gallery FILE.png\n", words[0]);
    return 2;
}
