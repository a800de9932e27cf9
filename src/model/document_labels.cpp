#include "model/document_labels.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>

static void initialiseStrings()
{
    Q_INIT_RESOURCE(strings);
}

namespace ledra {

namespace {

using StringTable = QHash<QString, QString>;

/// Reads lines of the form `"key" = "wording";`; other lines are comments or blank.
StringTable loadTable(const QString& language)
{
    static const QRegularExpression line(QStringLiteral("^\"([^\"]+)\" = \"([^\"]*)\";$"),
                                         QRegularExpression::MultilineOption);
    initialiseStrings();
    QFile file(QStringLiteral(":/strings/%1/Invoice.strings").arg(language));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The label table %s is not part of this build", qPrintable(file.fileName()));

    StringTable table;
    auto matches = line.globalMatch(QString::fromUtf8(file.readAll()));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        table.insert(match.captured(1), match.captured(2));
    }
    return table;
}

const StringTable& tableOf(Language language)
{
    static const StringTable english = loadTable(QStringLiteral("en"));
    static const StringTable german = loadTable(QStringLiteral("de"));
    return language == Language::german ? german : english;
}

} // namespace

QString documentLabel(const QString& key, Language language)
{
    return tableOf(language).value(key, key);
}

QString documentLabel(const QString& key, Language language,
                      std::initializer_list<std::pair<QString, QString>> values)
{
    QString text = documentLabel(key, language);
    for (const auto& [name, value] : values)
        text.replace(u'{' + name + u'}', value);
    return text;
}

QString exemptionText(VATExemptionReason reason, Language language)
{
    return reason == VATExemptionReason::none ? QString() : documentLabel(displayText(reason), language);
}

QString unitLabel(Unit unit, double quantity, Language language)
{
    const QString singular = displayText(unit);
    return documentLabel(quantity == 1 ? singular : singular + u's', language);
}

} // namespace ledra
