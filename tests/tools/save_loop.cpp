// Saves one invoice over and over until it is killed, and says after each save which version is safe now.
// What the version is can be told from its reference and from its note.

#include "support/opened_stores.h"
#include "support/recording_console.h"

#include <QCoreApplication>

#include <cstdio>

using namespace ledra;

namespace {

constexpr int largestNote = 200'000;
constexpr int versionsPerDay = 5;
constexpr int days = 9; ///< then the date goes back, and with it the file's name

/// The number over and over, at a size between 1 byte and the largest that has nothing to do with the number.
QString noteOf(int version)
{
    const QString number = QString::number(version);
    const int size = 1 + static_cast<int>(version * 7'919LL * 104'729LL % largestNote);
    return number.repeated(size / static_cast<int>(number.size()) + 1);
}

void setVersion(Invoice& invoice, int version)
{
    invoice.reference = QString::number(version);
    invoice.note = noteOf(version);
    const QDate day = QDate(2026, 3, 25).addDays(version / versionsPerDay % days);
    invoice.date = Timestamp::fromDateTime(QDateTime(day, QTime(12, 0), Qt::UTC));
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    test::RecordingConsole console;
    const test::OpenedStores stores(console);
    InvoiceManager& invoices = *stores.invoices;
    if (invoices.invoices().empty() && !invoices.create(InvoiceType::invoice))
        return 1;
    const QUuid id = (*invoices.invoices().front())->id;
    int version = (*invoices.find(id))->reference.value_or(QStringLiteral("0")).toInt();
    while (console.failures.isEmpty()) {
        ++version;
        if (invoices.edit(id, [version](Invoice& invoice) { setVersion(invoice, version); })) {
            std::printf("%d\n", version);
            std::fflush(stdout);
        }
    }
    std::fprintf(stderr, "%s\n", qPrintable(console.failures.join(u'\n')));
    return 1;
}
