#pragma once

#include "render/qt_web_engine.h"
#include "render/web_font_manager.h"
#include "support/program_run.h"
#include "support/recording_console.h"
#include "support/wait_for.h"
#include "ui/dialog_answers.h"
#include "ui/jobs/document_actions.h"

#include <QMainWindow>
#include <QVBoxLayout>

namespace ledra::test {

/// The documents of a home of its own over a window of nothing but messages, driven as by a user.
struct DocumentDesk : DialogAnswers
{
    DocumentDesk()
    {
        window.setCentralWidget(messages);
        window.resize(900, 600);
        window.show();
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
        return waitUntil(isSaid);
    }

    RecordingConsole console;
    LedraApp app{{.console = console}};
    QtWebEngine engine;
    WebFontManager fonts;
    QMainWindow window;
    MessageBar* messages = new MessageBar;
    WindowParts parts{app, engine, fonts, *messages, window};
    DocumentActions actions{parts};
    QStringList notes;
    QMetaObject::Connection following = QObject::connect(messages, &MessageBar::noted, messages,
                                                         [this](const QString& line) { notes += line; });
};

} // namespace ledra::test
