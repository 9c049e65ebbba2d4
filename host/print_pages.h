// The pages of a printed document: those of an input, or empty ones, laid on sheets of paper with what the driver
// draws on top. The input's contents pass through as they are. Lengths are PDF points.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace host {

struct PaperSheet {
    double width, height;
    double margin;  // on each side; the printer does not reach it
};

class PrintedPages {
  public:
    // Reads the file, or the bytes if the path is empty; name is what messages call it. Failure when it cannot be
    // opened without a password, may not be printed, is damaged, or has no page.
    static std::unique_ptr<PrintedPages> Of(const std::string& path, const std::string& name, std::string bytes);
    static std::unique_ptr<PrintedPages> Empty(int count);
    virtual ~PrintedPages() = default;

    virtual std::size_t Count() const = 0;

    // A drawing for many pages: a PDF of one page whose upper left corner comes to the printable area's. Gives
    // its number for Lay.
    virtual std::size_t AddStamp(const std::string& pdf, const PaperSheet& sheet) = 0;
    static constexpr std::size_t NoStamp = static_cast<std::size_t>(-1);

    // Centres the page's contents in the printable area, made smaller if they do not fit, and puts the stamp on
    // top. Once for each page.
    virtual void Lay(std::size_t page, const PaperSheet& sheet, std::size_t stamp) = 0;

    // All pages must be laid. Writes to an open file, which stays open; progress gets percents. 0, or the system's
    // error. Failure when the input proves to be damaged.
    virtual int Write(int descriptor, const std::function<void(int)>& progress) = 0;
    virtual std::string WriteToMemory() = 0;

    // What libqpdf remarked on form fields that it drew.
    virtual const std::vector<std::string>& Remarks() const = 0;
};

}  // namespace host
