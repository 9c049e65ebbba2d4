// This source is C++17: libqpdf's headers do not compile as C++20 with every compiler.
#include "host/print_pages.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <qpdf/Pl_Discard.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFAcroFormDocumentHelper.hh>
#include <qpdf/QPDFExc.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <qpdf/QUtil.hh>
#include <system_error>

#include "host/errors.h"

namespace host {

namespace {

constexpr double LargestSide = 1e6;

using Box = QPDFObjectHandle::Rectangle;

// What is said of a damaged or a foreign file may quote it: neither always short nor fit for a terminal.
std::string Brief(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    constexpr std::size_t Most = 300;
    if (text.size() > Most) text = text.substr(0, Most) + "...";
    return text;
}

QPDFObjectHandle Name(const char* name) { return QPDFObjectHandle::newName(name); }

Box Normal(const Box& box)
{
    return {std::min(box.llx, box.urx), std::min(box.lly, box.ury), std::max(box.llx, box.urx),
            std::max(box.lly, box.ury)};
}

// What shows of a page: its crop box as far as the page goes.
Box VisibleBox(QPDFPageObjectHelper page, std::size_t number)
{
    const auto fail = [number](const char* why) {
        throw std::runtime_error("page " + std::to_string(number + 1) + " " + why);
    };
    QPDFObjectHandle media = page.getMediaBox(), crop = page.getCropBox();
    if (!media.isRectangle()) fail("has no size");
    Box box = Normal(media.getArrayAsRectangle());
    if (crop.isRectangle()) {
        const Box cut = Normal(crop.getArrayAsRectangle());
        const Box both{std::max(box.llx, cut.llx), std::max(box.lly, cut.lly), std::min(box.urx, cut.urx),
                       std::min(box.ury, cut.ury)};
        if (both.llx < both.urx && both.lly < both.ury) box = both;
    }
    const auto possible = [](double side) { return side > 0 && side < LargestSide; };
    if (!possible(box.urx - box.llx) || !possible(box.ury - box.lly)) fail("has no possible size");
    return box;
}

int QuarterTurns(QPDFObjectHandle page)  // clockwise, 0 to 3
{
    QPDFObjectHandle turn = page.getKey("/Rotate");
    return turn.isInteger() ? static_cast<int>((turn.getIntValue() / 90 % 4 + 4) % 4) : 0;
}

double UserUnit(QPDFObjectHandle page)
{
    QPDFObjectHandle unit = page.getKey("/UserUnit");
    const double value = unit.isNumber() ? unit.getNumericValue() : 1;
    return value > 0 && value < LargestSide ? value : 1;
}

// Makes a form of the stream that holds a page's contents.
void MakeForm(QPDFObjectHandle stream, QPDFObjectHandle page, const Box& box)
{
    QPDFObjectHandle form = stream.getDict();
    form.replaceKey("/Type", Name("/XObject"));
    form.replaceKey("/Subtype", Name("/Form"));
    form.replaceKey("/BBox", QPDFObjectHandle::newFromRectangle(box));
    form.removeKey("/Matrix");
    QPDFObjectHandle resources = page.getKey("/Resources");
    form.replaceKey("/Resources", resources.isDictionary() ? resources : QPDFObjectHandle::newDictionary());
    if (page.hasKey("/Group")) form.replaceKey("/Group", page.getKey("/Group"));
}

std::string Placed(const std::array<double, 6>& matrix, const char* object)
{
    std::string operators = "q ";
    for (const double number : matrix) operators += QUtil::double_to_string(number + 0.0, 6) + " ";
    return operators + "cm " + object + " Do Q\n";
}

// From the box of a page, turned as the page is, to the middle of the sheet.
std::array<double, 6> ToSheet(const Box& box, int turns, double unit, const PaperSheet& sheet)
{
    double width = (box.urx - box.llx) * unit, height = (box.ury - box.lly) * unit;
    if (turns % 2 == 1) std::swap(width, height);
    const double scale =
        unit * std::min({1.0, (sheet.width - 2 * sheet.margin) / width, (sheet.height - 2 * sheet.margin) / height});
    constexpr int Cosines[] = {1, 0, -1, 0}, Sines[] = {0, 1, 0, -1};  // clockwise
    const double cosine = Cosines[turns] * scale, sine = Sines[turns] * scale;
    const double x = (box.llx + box.urx) / 2, y = (box.lly + box.ury) / 2;
    return {cosine,
            -sine,
            sine,
            cosine,
            sheet.width / 2 - (cosine * x + sine * y),
            sheet.height / 2 - (cosine * y - sine * x)};
}

// What libqpdf throws names the input.
class QpdfPages : public PrintedPages {
  public:
    QpdfPages(const std::string& path, const std::string& name, std::string bytes);
    explicit QpdfPages(int emptyPages);

    std::size_t Count() const override { return pages_.size(); }
    std::size_t AddStamp(const std::string& pdf, const PaperSheet& sheet) override;
    void Lay(std::size_t page, const PaperSheet& sheet, std::size_t stamp) override;
    int Write(int descriptor, const std::function<void(int)>& progress) override;
    std::string WriteToMemory() override;
    const std::vector<std::string>& Remarks() const override { return remarks_; }

  private:
    template <class Work>
    auto Guarded(Work work);
    void Open();
    void CheckWhole();
    QPDFObjectHandle ContentsOf(QPDFObjectHandle page, std::size_t number);
    QPDFObjectHandle ContentStream(const std::string& operators);

    std::string input_;  // its name; empty: none
    std::string bytes_;  // of standard input
    QPDF document_;
    std::vector<QPDFObjectHandle> pages_;
    std::vector<QPDFObjectHandle> stamps_;
    std::map<std::string, QPDFObjectHandle> contentStreams_;  // pages that are laid alike share theirs
    std::vector<std::string> remarks_;
};

template <class Work>
auto QpdfPages::Guarded(Work work)
{
    const std::string subject = input_.empty() ? "the printed pages" : input_;
    try {
        return work();
    } catch (const Failure&) {
        throw;
    } catch (const QPDFExc& error) {
        if (error.getErrorCode() == qpdf_e_password) {
            throw Failure("cannot print " + subject + ": it is encrypted and opens with a password only");
        }
        const std::string where = error.getObject().empty() ? "" : " (" + error.getObject() + ")";
        throw Failure("cannot print " + subject + ": it is damaged: " + Brief(error.getMessageDetail() + where));
    } catch (const std::exception& error) {
        throw Failure("cannot print " + subject + ": " + Brief(error.what()));
    }
}

QpdfPages::QpdfPages(const std::string& path, const std::string& name, std::string bytes)
    : input_(name), bytes_(std::move(bytes))
{
    document_.setSuppressWarnings(true);
    document_.setAttemptRecovery(false);
    if (path.empty()) {
        if (bytes_.empty()) throw Failure("cannot print " + input_ + ": it is empty");
    } else {
        std::error_code error;
        const auto size = std::filesystem::file_size(path, error);
        if (error) throw Failure("cannot read " + input_ + ": " + error.message());
        if (size == 0) throw Failure("cannot print " + input_ + ": it is empty");
    }
    Guarded([&] {
        if (path.empty()) {
            document_.processMemoryFile(input_.c_str(), bytes_.data(), bytes_.size());
        } else {
            document_.processFile(path.c_str());
        }
        Open();
    });
}

QpdfPages::QpdfPages(int emptyPages)
{
    document_.emptyPDF();
    for (int i = 0; i < emptyPages; ++i) {
        QPDFObjectHandle page = QPDFObjectHandle::newDictionary();
        page.replaceKey("/Type", Name("/Page"));
        document_.addPage(document_.makeIndirectObject(page), false);
    }
    pages_ = document_.getAllPages();
}

// What shows when the input is printed goes into its pages; all else of the document (outlines, scripts, attached
// files) is no matter of a print.
void QpdfPages::Open()
{
    if (!document_.allowPrintLowRes()) throw std::runtime_error("it is protected: its owner lets nobody print it");
    QPDFPageDocumentHelper pages(document_);
    pages.pushInheritedAttributesToPage();
    if (document_.getAllPages().empty()) throw std::runtime_error("it has no pages");
    CheckWhole();
    QPDFAcroFormDocumentHelper(document_).generateAppearancesIfNeeded();
    pages.flattenAnnotations(an_print, an_invisible | an_hidden | an_no_view);
    for (const QPDFExc& remark : document_.getWarnings())
        remarks_.push_back(input_ + ": " + Brief(remark.getMessageDetail()));
    pages_ = document_.getAllPages();

    QPDFObjectHandle root = document_.getRoot();
    for (const std::string& key : root.getKeys()) {
        if (key != "/Type" && key != "/Pages" && key != "/OCProperties" && key != "/Version") root.removeKey(key);
    }
    QPDFObjectHandle trailer = document_.getTrailer();
    trailer.removeKey("/Info");
}

void QpdfPages::CheckWhole()
{
    const auto warnings = document_.getWarnings();
    if (!warnings.empty()) throw warnings.front();
}

// The page's contents as a form, or null for a page without any. One stream is taken over raw; several have to be
// joined, since what they say may be cut anywhere.
QPDFObjectHandle QpdfPages::ContentsOf(QPDFObjectHandle page, std::size_t number)
{
    QPDFObjectHandle contents = page.getKey("/Contents");
    if (contents.isArray() && contents.getArrayNItems() == 1) contents = contents.getArrayItem(0);
    if (contents.isStream()) {
        // It goes to the output undecoded, so that nobody else would notice.
        Pl_Discard nowhere;
        bool decoded = false;
        if (!contents.pipeStreamData(&nowhere, &decoded, 0, qpdf_dl_generalized, true))
            throw std::runtime_error("it is damaged: the contents of page " + std::to_string(number + 1) +
                                     " cannot be decoded");
        return contents.copyStream();
    }
    if (!contents.isArray() || contents.getArrayNItems() == 0) return QPDFObjectHandle::newNull();
    QPDFPageObjectHelper(page).coalesceContentStreams();
    return page.getKey("/Contents");
}

QPDFObjectHandle QpdfPages::ContentStream(const std::string& operators)
{
    const auto known = contentStreams_.find(operators);
    if (known != contentStreams_.end()) return known->second;
    return contentStreams_[operators] = document_.newStream(operators);
}

std::size_t QpdfPages::AddStamp(const std::string& pdf, const PaperSheet& sheet)
{
    QPDF stamp;
    stamp.setSuppressWarnings(true);
    stamp.setImmediateCopyFrom(true);
    stamp.processMemoryFile("stamp", pdf.data(), pdf.size());
    QPDFPageDocumentHelper(stamp).pushInheritedAttributesToPage();
    QPDFObjectHandle page = stamp.getAllPages().at(0);
    const Box box = QPDFPageObjectHelper(page).getMediaBox().getArrayAsRectangle();
    QPDFObjectHandle form = page.getKey("/Contents");
    if (!form.isStream()) throw Failure("cannot draw the stamp: its page is not one stream");
    const double width = sheet.width - 2 * sheet.margin, height = sheet.height - 2 * sheet.margin;
    MakeForm(form, page, {box.llx, box.ury - height, box.llx + width, box.ury});
    form.getDict().replaceKey(
        "/Matrix", QPDFObjectHandle::newFromMatrix(
                       QPDFMatrix(1, 0, 0, 1, sheet.margin - box.llx, sheet.height - sheet.margin - box.ury)));
    stamps_.push_back(document_.copyForeignObject(form));
    return stamps_.size() - 1;
}

void QpdfPages::Lay(std::size_t number, const PaperSheet& sheet, std::size_t stamp)
{
    Guarded([&] {
        QPDFObjectHandle page = pages_.at(number);
        QPDFObjectHandle objects = QPDFObjectHandle::newDictionary();
        std::string operators;
        if (!input_.empty()) {
            if (QPDFObjectHandle form = ContentsOf(page, number); form.isStream()) {
                const Box box = VisibleBox(QPDFPageObjectHelper(page), number);
                MakeForm(form, page, box);
                objects.replaceKey("/Page", form);
                operators += Placed(ToSheet(box, QuarterTurns(page), UserUnit(page), sheet), "/Page");
            }
        }
        if (stamp != NoStamp) {
            objects.replaceKey("/Stamp", stamps_.at(stamp));
            operators += "q /Stamp Do Q\n";
        }
        for (const std::string& key : page.getKeys()) {
            if (key != "/Type" && key != "/Parent") page.removeKey(key);
        }
        page.replaceKey("/MediaBox", QPDFObjectHandle::newFromRectangle({0, 0, sheet.width, sheet.height}));
        QPDFObjectHandle resources = QPDFObjectHandle::newDictionary();
        if (!operators.empty()) {
            resources.replaceKey("/XObject", objects);
            page.replaceKey("/Contents", ContentStream(operators));
        }
        page.replaceKey("/Resources", resources);
    });
}

void SetUp(QPDFWriter& writer) { writer.setMinimumPDFVersion("1.4"); }

int QpdfPages::Write(int descriptor, const std::function<void(int)>& progress)
{
    std::unique_ptr<FILE, int (*)(FILE*)> stream(::fdopen(::dup(descriptor), "wb"), &::fclose);
    if (!stream) return errno;
    Guarded([&] {
        QPDFWriter writer(document_);
        writer.setOutputFile("output", stream.get(), false);
        SetUp(writer);
        if (progress) writer.registerProgressReporter(std::make_shared<QPDFWriter::FunctionProgressReporter>(progress));
        writer.write();
        CheckWhole();
    });
    // A write that failed meanwhile leaves nothing to flush.
    errno = 0;
    const bool written = std::fflush(stream.get()) == 0 && !std::ferror(stream.get());
    return written ? 0 : errno ? errno : EIO;
}

std::string QpdfPages::WriteToMemory()
{
    return Guarded([&] {
        QPDFWriter writer(document_);
        writer.setOutputMemory();
        SetUp(writer);
        writer.write();
        CheckWhole();
        const auto buffer = writer.getBufferSharedPointer();
        return std::string(reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize());
    });
}

}  // namespace

}  // namespace host

// PrintedPages' makers, as the program finds them.
extern "C" {

void QdReadPages(std::unique_ptr<host::PrintedPages>& pages, const std::string& path, const std::string& name,
                 std::string&& bytes)
{
    pages = std::make_unique<host::QpdfPages>(path, name, std::move(bytes));
}

void QdMakePages(std::unique_ptr<host::PrintedPages>& pages, int count)
{
    pages = std::make_unique<host::QpdfPages>(count);
}
}
