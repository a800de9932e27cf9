#include "ui/jobs/failure_texts.h"

#include "ui/jobs/question.h"

#include <QCoreApplication>

#include <array>

namespace ledra {

namespace {

/// Each with what its text begins with; a path may follow.
constexpr std::array texts = {
    QT_TRANSLATE_NOOP("FailureTexts", "Could not open the selected PDF."),
    QT_TRANSLATE_NOOP("FailureTexts", "Only PDFs exported by Ledra can be reimported."),
    QT_TRANSLATE_NOOP("FailureTexts",
                      "There is already another version of this invoice. If you still want to "
                      "import it, you must first delete the existing one."),
    QT_TRANSLATE_NOOP("FailureTexts", "Could not read the selected XML file."),
    QT_TRANSLATE_NOOP("FailureTexts", "This file does not appear to be a valid e-invoice."),
    QT_TRANSLATE_NOOP("FailureTexts", "The selected file is not a valid Ledra Data file."),
    QT_TRANSLATE_NOOP("FailureTexts", "Failed to extract the Ledra Data file."),
    QT_TRANSLATE_NOOP("FailureTexts", "No valid profiles found in the Ledra Data file."),
    QT_TRANSLATE_NOOP("FailureTexts", "Profile has no name"),
    QT_TRANSLATE_NOOP("FailureTexts", "Profile directory not found: "),
    QT_TRANSLATE_NOOP("FailureTexts", "The selected file is not a valid Style file."),
    QT_TRANSLATE_NOOP("FailureTexts", "Failed to extract the Style file."),
    QT_TRANSLATE_NOOP("FailureTexts", "The Style file doesn’t contain any styling."),
    QT_TRANSLATE_NOOP("FailureTexts", "The profile could not be found."),
    QT_TRANSLATE_NOOP("FailureTexts", "This profile has no styling to export yet."),
    QT_TRANSLATE_NOOP("FailureTexts", "Failed to create the Style file."),
};

} // namespace

QString failureText(const QString& english)
{
    for (const char* text : texts) {
        if (const QString start = QString::fromUtf8(text); english.startsWith(start))
            return QCoreApplication::translate("FailureTexts", text) + english.mid(start.size());
    }
    return english; // as the system says it
}

void alert(QWidget& window, const QString& title, const ArchiveFailure& failure)
{
    alert(window, title, failureText(failure.message), failure.detail);
}

} // namespace ledra
