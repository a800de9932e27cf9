#include "einvoice/viewer_xml_parser.h"

#include "einvoice/cii_reader.h"

namespace ledra {

std::expected<OpenedEInvoice, ReceivedFileError> ViewerXMLParser::parse(const QString& fileName,
                                                                        const QByteArray& content) const
{
    const std::expected<ReceivedFile, ReceivedFileError> received = openReceivedFile(content);
    if (!received)
        return std::unexpected(received.error());
    const Element& root = *received->document.root;
    Invoice invoice = newInvoice(ids_.newId(), clock_.now(), Country());
    const CiiHeader header = readCrossIndustryInvoice(root, invoice, ids_);
    OpenedEInvoice opened{{ids_.newId(), std::move(invoice), header.number, fileName, header.typeCode},
                          std::nullopt,
                          header.hasDate,
                          header.hasServiceDate,
                          {},
                          received->otherAttachments};
    const Invoice& record = opened.viewer.invoice;
    if (header.dueDate && header.typeCode != creditNoteCode)
        opened.daysToPay = static_cast<int>(record.date.localDate().daysTo(*header.dueDate));
    opened.differences = statedDifferences(root, record);
    return opened;
}

} // namespace ledra
