#include "tests/program/pdf.h"

#include <qpdf/QPDFWriter.hh>

namespace {

std::string Text(const std::shared_ptr<Buffer>& buffer)
{
    return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
}

void AddNote(QPDF& pdf, QPDFObjectHandle page, int flags)
{
    QPDFObjectHandle look = pdf.newStream("BT /F1 12 Tf 9 9 Td (Note) Tj ET");
    look.replaceDict(QPDFObjectHandle::parse("<< /Subtype /Form /BBox [0 0 99 99] >>"));
    look.getDict().replaceKey("/Resources", page.getKey("/Resources"));
    QPDFObjectHandle note =
        QPDFObjectHandle::parse("<< /Subtype /Stamp /Rect [0 0 99 99] /AP << >> /F " + std::to_string(flags) + " >>");
    note.getKey("/AP").replaceKey("/N", look);
    page.replaceKey("/Annots", QPDFObjectHandle::newArray({pdf.makeIndirectObject(note)}));
}

}  // namespace

std::string MakePdf(const std::vector<PdfPage>& pages)
{
    QPDF pdf;
    pdf.emptyPDF();
    for (const PdfPage& row : pages) {
        QPDFObjectHandle page = QPDFObjectHandle::parse(
            "<< /Type /Page /Resources << /Font << /F1 << /Type /Font /Subtype /Type1 /BaseFont /Helvetica >> >> >> "
            "/MediaBox [" +
            row.box + "] " + row.more + " >>");
        std::vector<QPDFObjectHandle> streams;
        for (const std::string& content : row.contents) streams.push_back(pdf.newStream(content));
        page.replaceKey("/Contents", streams.size() == 1 ? streams[0] : QPDFObjectHandle::newArray(streams));
        if (row.noteFlags >= 0) AddNote(pdf, page, row.noteFlags);
        pdf.addPage(pdf.makeIndirectObject(page), false);
    }
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.setStaticID(true);
    writer.write();
    return Text(writer.getBufferSharedPointer());
}

Pdf::Pdf(const std::string& bytes) : bytes_(bytes)
{
    pdf_.setAttemptRecovery(false);
    pdf_.processMemoryFile("output", bytes_.data(), bytes_.size());
    pages_ = pdf_.getAllPages();
}

std::string Pdf::Contents(std::size_t page)
{
    QPDFObjectHandle contents = pages_.at(page).getKey("/Contents");
    return contents.isStream() ? Text(contents.getStreamData()) : "";
}

QPDFObjectHandle Pdf::Object(std::size_t page, const std::string& name)
{
    return pages_.at(page).getKey("/Resources").getKeyIfDict("/XObject").getKeyIfDict(name);
}
