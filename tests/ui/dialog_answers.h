#pragma once

#include "ui/jobs/export_progress.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace ledra::test {

/// What users see of a dialog that stands over the window.
inline QString shownBy(const QDialog& dialog)
{
    if (const auto* box = qobject_cast<const QMessageBox*>(&dialog)) {
        QStringList answers;
        for (const QAbstractButton* button : box->buttons())
            answers += button->text().remove(u'&');
        answers.sort();
        return box->text() + u'|' + box->informativeText() + u'|' + answers.join(u',');
    }
    return dialog.windowTitle();
}

/// Answers the dialogs that stand over a window, as a user does.
struct DialogAnswers
{
    static QDialog* dialog() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

    /// Waits for the next dialog and answers it: a path is typed and confirmed, a button is pressed by its
    /// text, "" is Escape. Returns what the dialog said, nothing if none came.
    QString answer(const QString& text)
    {
        if (!QTest::qWaitFor(
                [] { return dialog() && dialog()->isVisible() && !qobject_cast<ExportProgress*>(dialog()); },
                5000))
            return {};
        QDialog* shown = dialog();
        const QString said = shownBy(*shown);
        if (text.isEmpty()) {
            QTest::keyClick(shown, Qt::Key_Escape);
        } else if (auto* panel = qobject_cast<QFileDialog*>(shown)) {
            auto* name = panel->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            proposed = name->text();
            name->setText(text); // typing would open a list of suggestions, which takes the Return
            QTest::keyClick(name, Qt::Key_Return);
        } else {
            pressButton(*shown, text);
        }
        if (!QTest::qWaitFor([shown] { return dialog() != shown; }, 2000))
            return said + QStringLiteral(" (still open)");
        return said;
    }

    static void pressButton(const QDialog& shown, const QString& text)
    {
        for (QPushButton* button : shown.findChildren<QPushButton*>()) {
            if (button->text().remove(u'&') == text) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
    }

    QString proposed; ///< by the panel that was answered last
};

} // namespace ledra::test
