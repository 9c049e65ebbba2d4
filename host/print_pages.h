// The pages of a printed document: those of an input, or empty ones, laid on sheets of paper with what the driver
// draws on top. The input's contents pass through as they are. Lengths are PDF points.
#pragma once

#include <functional>
#include <map>
#include <qpdf/QPDF.hh>
#include <string>
#include <vector>

namespace host {

class PendingFile;

struct PaperSheet {
    double width, height;
    double margin;  // on each side; the printer does not reach it
};

class PrintedPages {
  public:
    // Reads the input; "-" is standard input. Failure when it cannot be opened without a password, may not be
    // printed, is damaged, or has no page.
    explicit PrintedPages(const std::string& input);
    explicit PrintedPages(int emptyPages);

    std::size_t Count() const { return pages_.size(); }

    // A drawing for many pages: a PDF of one page whose upper left corner comes to the printable area's. Gives
    // its number for Lay.
    std::size_t AddStamp(const std::string& pdf, const PaperSheet& sheet);
    static constexpr std::size_t NoStamp = static_cast<std::size_t>(-1);

    // Centres the page's contents in the printable area, made smaller if they do not fit, and puts the stamp on
    // top. Once for each page.
    void Lay(std::size_t page, const PaperSheet& sheet, std::size_t stamp);

    // All pages must be laid. progress gets percents. Failure, also when the input proves to be damaged.
    void Write(PendingFile& file, const std::function<void(int)>& progress);
    std::string WriteToMemory();

    // What libqpdf remarked on form fields that it drew.
    const std::vector<std::string>& Remarks() const { return remarks_; }

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

}  // namespace host
