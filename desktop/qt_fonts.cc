#include "qt_fonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <array>
#include <cmath>
#include <map>

#include "qt_runtime.h"
#include "qt_surface.h"

namespace desktop {

namespace {

struct StandIn {
    const char* face;
    const char* family;
};
// Liberation fonts have the advance widths of these faces.
constexpr StandIn StandIns[] = {
    {"Times New Roman", "Liberation Serif"},
    {"Arial",           "Liberation Sans" },
    {"Courier New",     "Liberation Mono" },
};

QString FamilyFor(const QString& face)
{
    if (face.isEmpty() || face == "System" || face == "MS Shell Dlg")
        return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    if (face == "Fixedsys") return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    if (QFontDatabase::hasFamily(face)) return face;
    for (const StandIn& row : StandIns)
        if (face == row.face && QFontDatabase::hasFamily(row.family)) return row.family;
    return face;
}

std::u16string_view FaceOf(const LOGFONTW& font)
{
    std::size_t length = 0;
    while (length < LF_FACESIZE && font.lfFaceName[length]) ++length;
    return {font.lfFaceName, length};
}

platform::FontDescription Describe(const QString& face, bool bold, bool italic)
{
    platform::FontDescription description;
    LOGFONTW& font = description.font;
    const std::u16string name = ToWideString(face.left(LF_FACESIZE - 1));
    std::copy(name.begin(), name.end(), font.lfFaceName);
    font.lfHeight = 16;
    font.lfWeight = bold ? 700 : 400;
    font.lfItalic = italic ? 1 : 0;
    description.type = TRUETYPE_FONTTYPE;
    description.metrics.tmHeight = font.lfHeight;
    description.metrics.tmWeight = font.lfWeight;
    description.metrics.tmItalic = font.lfItalic;
    return description;
}

class QtFonts : public platform::FontService {
  public:
    std::vector<platform::FontDescription> Families() override
    {
        EnsureApplication();
        QStringList faces;
        for (const QString& family : QFontDatabase::families())
            if (QFontDatabase::isScalable(family) && !QFontDatabase::isPrivateFamily(family) &&
                family.size() < LF_FACESIZE)
                faces << family;
        for (const StandIn& row : StandIns)
            if (!faces.contains(row.face) && QFontDatabase::hasFamily(row.family)) faces << row.face;
        faces.sort(Qt::CaseInsensitive);
        std::vector<platform::FontDescription> families;
        for (const QString& face : faces) families.push_back(Describe(face, false, false));
        return families;
    }

    std::vector<platform::FontDescription> Styles(std::u16string_view face) override
    {
        const auto known = styles_.find(face);
        if (known != styles_.end()) return known->second;
        if (styles_.size() >= MostKept) styles_.clear();
        return styles_[std::u16string(face)] = FindStyles(ToQString(face));
    }

    SIZE Extent(const LOGFONTW& font, std::u16string_view text) override
    {
        std::u16string key(reinterpret_cast<const char16_t*>(&font), sizeof font / sizeof(char16_t));
        key += text;
        const auto known = extents_.find(key);
        if (known != extents_.end()) return known->second;
        if (extents_.size() >= MostKept) extents_.clear();
        return extents_[std::move(key)] = Measure(font, text);
    }

  private:
    static std::vector<platform::FontDescription> FindStyles(const QString& name)
    {
        EnsureApplication();
        const QString family = FamilyFor(name);
        std::vector<platform::FontDescription> styles;
        if (!QFontDatabase::hasFamily(family)) return styles;
        std::array<bool, 4> present{};
        for (const QString& style : QFontDatabase::styles(family))
            present[(QFontDatabase::bold(family, style) ? 1 : 0) + (QFontDatabase::italic(family, style) ? 2 : 0)] =
                true;
        for (int index = 0; index < 4; ++index)
            if (present[std::size_t(index)]) styles.push_back(Describe(name, index & 1, index & 2));
        return styles;
    }

    static SIZE Measure(const LOGFONTW& font, std::u16string_view text)
    {
        EnsureApplication();
        const QFontMetricsF metrics(ToQFont(font));
        return {LONG(std::lround(metrics.horizontalAdvance(ToQString(text)))), LONG(std::lround(metrics.height()))};
    }

    // A job asks the same for each of its pages, and finding a font takes longer than printing a page.
    static constexpr std::size_t MostKept = 256;
    std::map<std::u16string, std::vector<platform::FontDescription>, std::less<>> styles_;
    std::map<std::u16string, SIZE> extents_;
};

}  // namespace

std::shared_ptr<platform::FontService> MakeQtFonts() { return std::make_shared<QtFonts>(); }

namespace {

QFont MakeQFont(const LOGFONTW& description)
{
    QFont font(FamilyFor(ToQString(FaceOf(description))));
    font.setWeight(description.lfWeight >= 600 ? QFont::Bold : QFont::Normal);
    font.setItalic(description.lfItalic != 0);
    font.setUnderline(description.lfUnderline != 0);
    font.setStrikeOut(description.lfStrikeOut != 0);
    font.setHintingPreference(QFont::PreferNoHinting);
    const int height = description.lfHeight == 0 ? -12 : description.lfHeight;
    font.setPixelSize(std::max(1, std::abs(height)));
    if (height > 0) {
        // The cell is ascent and descent; the characters are what the cell leaves of them.
        const double cell = QFontMetricsF(font).height();
        if (cell > 0) font.setPixelSize(std::max(1, int(std::lround(height * height / cell))));
    }
    return font;
}

}  // namespace

QFont ToQFont(const LOGFONTW& description)
{
    // A picture asks for the same few fonts again and again, and finding one takes longer than drawing with it.
    constexpr std::size_t MostKept = 256;
    thread_local std::map<std::u16string, QFont> fonts;
    std::u16string key(reinterpret_cast<const char16_t*>(&description), sizeof description / sizeof(char16_t));
    const auto known = fonts.find(key);
    if (known != fonts.end()) return known->second;
    if (fonts.size() >= MostKept) fonts.clear();
    return fonts[std::move(key)] = MakeQFont(description);
}

}  // namespace desktop
