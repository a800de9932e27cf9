#include "app/received_invoice.h"

#include "app/invoice_summary.h"
#include "exchange/imported_draft.h"
#include "platform/file_io.h"
#include "store/json_schema.h"

#include <QFileInfo>

namespace ledra {

namespace {

/// The record under the number that it was received with.
Invoice shownRecord(const OpenedEInvoice& opened)
{
    Invoice invoice = opened.viewer.invoice;
    setLiteralNumber(invoice, opened.viewer.originalNumber);
    if (opened.daysToPay)
        invoice.daysToPay = *opened.daysToPay;
    return invoice;
}

/// The keys of a summary of which the document says nothing.
std::set<std::string_view> unstatedKeys(const OpenedEInvoice& opened)
{
    std::set<std::string_view> keys;
    if (!opened.hasDate)
        keys.insert({"date", "daysToPay"}); // which are counted from the date
    if (!opened.hasServiceDate)
        keys.insert("serviceDateStart");
    if (!opened.daysToPay)
        keys.insert({"daysToPay", "dueDate"});
    return keys;
}

ReceivedHead headOf(const OpenedEInvoice& opened)
{
    return {viewerTitle(opened.viewer, Language::english), unstatedKeys(opened)};
}

QString block(const QString& heading, const QStringList& lines)
{
    return lines.isEmpty()
               ? QString()
               : u'\n' + heading + QStringLiteral("\n  ") + lines.join(QStringLiteral("\n  ")) + u'\n';
}

/// The object that "--json" writes for a received file.
struct ReceivedObject
{
    const OpenedEInvoice& opened;
    Timestamp now;
};

void encodeDifference(const StatedDifference& difference, UnkeyedEncodingContainer& list)
{
    KeyedEncodingContainer object = list.nestedKeyedContainer();
    object.encode("what", QString::fromLatin1(difference.label));
    object.encode("stated", difference.stated);
    if (difference.here)
        object.encode("here", *difference.here);
}

void encode(const ReceivedObject& received, JSONEncoderState& state)
{
    const OpenedEInvoice& opened = received.opened;
    const Invoice record = shownRecord(opened);
    const Profile nobody;
    const ReceivedHead head = headOf(opened);
    KeyedEncodingContainer object = state.keyedContainer();
    object.encode("fileName", opened.viewer.fileName);
    object.encode("number", opened.viewer.originalNumber);
    object.encode("typeCode", opened.viewer.typeCode);
    object.encode("invoice", InvoiceSummary{record, nobody, received.now, &head});
    UnkeyedEncodingContainer differences = object.nestedUnkeyedContainer("otherTotals");
    for (const StatedDifference& difference : opened.differences)
        encodeDifference(difference, differences);
    UnkeyedEncodingContainer attachments = object.nestedUnkeyedContainer("attachments");
    for (const QString& name : opened.attachments)
        attachments.encode(name);
}

} // namespace

std::expected<OpenedEInvoice, ReceivedFileError> openReceivedInvoice(const QString& path,
                                                                     const ViewerXMLParser& parser)
{
    const std::expected<QByteArray, FileError> content = readFile(path, largestReceivedFile);
    if (!content)
        return std::unexpected(ReceivedFileError::unreadable);
    return parser.parse(QFileInfo(path).fileName(), *content);
}

QString receivedText(const OpenedEInvoice& opened, Timestamp now)
{
    const Invoice invoice = shownRecord(opened);
    const Profile nobody;
    const ReceivedHead head = headOf(opened);
    QStringList differences;
    for (const StatedDifference& difference : opened.differences)
        differences += statedText(difference, invoice.currency, Language::english);
    return summaryText({invoice, nobody, now, &head}) +
           block(QStringLiteral("The document itself states another total:"), differences) +
           block(QStringLiteral("Attachments:"), opened.attachments);
}

QByteArray receivedJson(const OpenedEInvoice& opened, Timestamp now)
{
    OrderedJSONEncoder encoder;
    encoder.outputFormatting = {JSONFormatting::prettyPrinted};
    return encoder.encode(ReceivedObject{opened, now}).value();
}

} // namespace ledra
