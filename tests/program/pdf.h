// PDFs for tests: made from boxes and contents, and looked into.
#pragma once

#include <memory>
#include <qpdf/QPDF.hh>
#include <string>
#include <vector>

struct PdfPage {
    std::string box = "0 0 612 792";
    std::string more = "";  // of the page's dictionary, as "/Rotate 90"
    std::vector<std::string> contents = {"BT /F1 12 Tf 72 72 Td (Body) Tj ET\n"};
    int noteFlags = -1;  // of a note that says "Note"; below 0: there is none
};

std::string MakePdf(const std::vector<PdfPage>& pages);

// A finished PDF, which must be without a fault.
class Pdf {
  public:
    explicit Pdf(const std::string& bytes);
    std::size_t Count() { return pages_.size(); }
    std::string Box(std::size_t page) { return pages_.at(page).getKey("/MediaBox").unparse(); }
    std::string Contents(std::size_t page);
    QPDFObjectHandle Object(std::size_t page, const std::string& name);  // null: the page has none of the name

  private:
    std::string bytes_;
    QPDF pdf_;
    std::vector<QPDFObjectHandle> pages_;
};
