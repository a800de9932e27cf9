#pragma once

#include "ui/jobs/temporary_documents.h"

#include <QObject>
#include <QPrinter>

namespace ledra {

/// What is to be printed on a printer, as its dialog says it.
struct PrintOrder
{
    QString printer = {};
    QString title = {};
    int copies = 1;
    QString pages = {};  ///< "1-3,5"; empty for all
    QString sides = {};  ///< as CUPS names them; empty for what the printer is set to
    QString output = {}; ///< a file instead of a printer
};

PrintOrder printOrder(const QPrinter& printer);

/// The arguments of "lp" for an order.
QStringList printArguments(const PrintOrder& order, const QStringList& files);

/// What the printer's dialog begins with.
struct PrintQuestion
{
    QString title;
    PageFormat paper = PageFormat::a4;
    bool isOneDocument = true; ///< of which pages can be chosen
};

/// Prints documents as they are exported: the PDF goes to the printing system as it is, so that text stays
/// text and lines stay lines.
class DocumentPrinter : public QObject
{
    Q_OBJECT

public:
    DocumentPrinter(const WindowParts& parts, TemporaryDocuments& documents);

    /// Asks for the printer first.
    void print(const std::vector<InvoicePtr>& records);

    void print(const std::vector<InvoicePtr>& records, const PrintOrder& order);

    // The same in two steps, for documents that are no records.
    static void ask(const WindowParts& parts, const PrintQuestion& question,
                    const std::function<void(const PrintOrder&)>& accepted);
    static void printFiles(const WindowParts& parts, const PrintOrder& order, const QStringList& files);

private:
    const WindowParts& parts_;
    TemporaryDocuments& documents_;
};

} // namespace ledra
