#pragma once

#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"
#include "support/program_run.h"
#include "support/recording_console.h"
#include "ui/jobs/document_actions.h"
#include "ui/jobs/export_progress.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

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

/// The documents of a home of its own over a window of nothing but messages, driven as by a user.
struct DocumentDesk
{
    DocumentDesk()
    {
        window.setCentralWidget(messages);
        window.resize(900, 600);
        window.show();
    }

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
            press(*shown, text);
        }
        if (!QTest::qWaitFor([shown] { return dialog() != shown; }, 2000))
            return said + QStringLiteral(" (still open)");
        return said;
    }

    static void press(const QDialog& shown, const QString& text)
    {
        for (QPushButton* button : shown.findChildren<QPushButton*>()) {
            if (button->text().remove(u'&') == text) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
    }

    /// A record that an e-invoice lacks nothing of, or one that nobody has filled in.
    InvoicePtr record(const char* name, bool isComplete = true)
    {
        const JobResult<InvoicePtr> made = app.jobs().create(InvoiceType::invoice, [&](Invoice& invoice) {
            invoice.language = Language::english;
            invoice.name = QString::fromLatin1(name);
            invoice.items = {{app.ids().newId(), QStringLiteral("Design"), 2, Unit::hour, 80, 19}};
            if (!isComplete)
                return;
            invoice.email = QStringLiteral("erika@example.de");
            for (QString Invoice::* const field :
                 {&Invoice::senderName, &Invoice::senderEmail, &Invoice::senderPhone,
                  &Invoice::senderAddressPostcode, &Invoice::senderAddressCity, &Invoice::senderIban,
                  &Invoice::senderBic, &Invoice::senderTaxNumber, &Invoice::addressPostcode,
                  &Invoice::addressCity})
                invoice.*field = QStringLiteral("12345");
        });
        return made.value_or(nullptr);
    }

    std::vector<InvoicePtr> records(int count)
    {
        std::vector<InvoicePtr> made;
        for (int i = 0; i < count; ++i)
            made.push_back(record("Erika Muster"));
        return made;
    }

    /// Waits until the messages hold a line with that text.
    bool says(const QString& text) const
    {
        const auto isSaid = [&] {
            return messages->lines().join(u'\n').contains(text) || notes.join(u'\n').contains(text);
        };
        return QTest::qWaitFor(isSaid, 20'000);
    }

    RecordingConsole console;
    LedraApp app{{.console = console}};
    QtWebEngine engine;
    WebFontManager fonts;
    QMainWindow window;
    MessageBar* messages = new MessageBar;
    WindowParts parts{app, engine, fonts, *messages, window};
    DocumentActions actions{parts};
    QString proposed; ///< by the panel that was answered last
    QStringList notes;
    QMetaObject::Connection following = QObject::connect(messages, &MessageBar::noted, messages,
                                                         [this](const QString& line) { notes += line; });
};

} // namespace ledra::test
