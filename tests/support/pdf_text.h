#pragma once

#include <QByteArray>
#include <QProcess>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <QTemporaryFile>
#include <QXmlStreamReader>

#include <vector>

namespace ledra::test {

/// A word on paper: its box in points below and to the right of the page's top left corner.
struct PdfWord
{
    QString text;
    QRectF box;
};

struct PdfPage
{
    QSizeF size;
    std::vector<PdfWord> words; ///< in reading order

    QString text() const
    {
        QStringList texts;
        for (const PdfWord& word : words)
            texts += word.text;
        return texts.join(u' ');
    }
};

/// The output of a tool that reads a PDF from a file; empty when it fails.
inline QByteArray outputOfPdfTool(const QByteArray& pdf, const QString& tool, const QStringList& options = {},
                                  const QStringList& after = {})
{
    QTemporaryFile file;
    if (!file.open() || file.write(pdf) != pdf.size() || !file.flush())
        return {};
    QProcess process;
    process.start(tool, options + QStringList{file.fileName()} + after);
    const bool done = process.waitForFinished(60'000) && process.exitStatus() == QProcess::NormalExit;
    return done && process.exitCode() == 0 ? process.readAllStandardOutput() : QByteArray();
}

/// The same with the options in one line, of which two blanks enclose an empty one.
inline QByteArray outputOfPdfTool(const QByteArray& pdf, const char* tool, const char* options,
                                  const QStringList& after = {})
{
    const QStringList words = QString::fromLatin1(options).split(u' ');
    return outputOfPdfTool(pdf, QString::fromLatin1(tool), words, after);
}

/// The pages of a PDF as another program reads them (pdftotext of poppler-utils); none when it cannot.
inline std::vector<PdfPage> pagesOfPdf(const QByteArray& pdf)
{
    std::vector<PdfPage> pages;
    QXmlStreamReader reader(outputOfPdfTool(pdf, QStringLiteral("pdftotext"),
                                            {QStringLiteral("-bbox-layout")}, {QStringLiteral("-")}));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        const auto number = [&](const char* name) {
            return attributes.value(QLatin1StringView(name)).toDouble();
        };
        if (reader.name() == u"page") {
            pages.push_back({QSizeF(number("width"), number("height")), {}});
        } else if (reader.name() == u"word") {
            const QRectF box(QPointF(number("xMin"), number("yMin")),
                             QPointF(number("xMax"), number("yMax")));
            pages.back().words.push_back({reader.readElementText(), box});
        }
    }
    return reader.hasError() ? std::vector<PdfPage>{} : pages;
}

} // namespace ledra::test
