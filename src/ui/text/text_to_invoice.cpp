#include "ui/text/text_to_invoice.h"

#include "app/extraction_jobs.h"
#include "model/displayed_number.h"
#include "ui/main_window.h"
#include "ui/text/extracted_fields_view.h"
#include "ui/text/parser_texts.h"
#include "ui/text/text_well.h"

#include <QCloseEvent>

namespace ledra {

TextToInvoice::~TextToInvoice() = default;

void TextToInvoice::setText(const QString& text)
{
    text_->setPlainText(text);
}

// ---- the model

void TextToInvoice::askAvailability()
{
    if (isReading())
        return;
    parser_ = std::make_unique<TextParser>(textParserSetting(parts_.app.settings()), parts_.app.ids());
    parser_->availability([this](const TextParserAvailability& found) { showAvailability(found); });
}

void TextToInvoice::showAvailability(const TextParserAvailability& found)
{
    isAvailable_ = found.isAvailable();
    unavailable_->setText(found.unavailable ? parserText(*found.unavailable) : QString());
    notice_->setHidden(isAvailable_);
    showState();
}

/// Somebody may have started the server, changed the settings or chosen another draft meanwhile.
void TextToInvoice::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow())
        return;
    showTargets();
    if (!isAvailable_)
        askAvailability();
}

void TextToInvoice::read()
{
    isReading_ = true;
    fields_->setFields({}, false);
    unused_->hide();
    status_->setText(tr("The model is reading …"));
    parser_ = std::make_unique<TextParser>(textParserSetting(parts_.app.settings()), parts_.app.ids());
    connect(parser_.get(), &TextParser::arrived, this, [this](const PartialInvoice& partial) {
        fields_->setFields(partial.fields, false);
        status_->setText(
            tr("%n fields so far …", nullptr, static_cast<int>(extractedTexts(partial.fields).size())));
    });
    connect(parser_.get(), &TextParser::finished, this, &TextToInvoice::endReading);
    parser_->extract(text_->toPlainText());
    showState();
}

void TextToInvoice::cancelReading()
{
    parser_->cancel();
    isReading_ = false;
    fields_->setFields({}, false);
    status_->setText(tr("Stopped. Nothing was changed."));
    showState();
}

void TextToInvoice::endReading(const TextParser::Extraction& extraction)
{
    isReading_ = false;
    const bool isEmpty = extraction && extractedTexts(*extraction).empty();
    fields_->setFields(extraction.value_or(ExtractedInvoice()), true);
    if (!extraction)
        status_->setText(parserText(extraction.error()));
    else
        status_->setText(isEmpty ? tr("Nothing was found in the text.")
                                 : tr("Models err: look at the fields. Each can be changed or emptied."));
    showState();
    showUnused();
    if (accept_->isEnabled())
        accept_->setFocus();
}

// ---- what becomes of it

/// A new invoice, or the draft that is selected in the main window.
void TextToInvoice::showTargets()
{
    const QUuid chosen = targets_->currentData().toUuid();
    const QSignalBlocker quiet(targets_);
    targets_->clear();
    targets_->addItem(tr("New invoice"));
    const std::vector<InvoicePtr> selected = window_.selected();
    if (selected.size() == 1 && !isGuarded(**selected.front())) {
        const Invoice& draft = **selected.front();
        const Profile& profile = **parts_.app.profileManager().activeProfile();
        targets_->addItem(tr("Draft %1: fill what is empty").arg(displayedNumber(draft, profile)), draft.id);
        if (draft.id == chosen)
            targets_->setCurrentIndex(1);
    }
    targets_->setEnabled(targets_->count() > 1);
    showUnused();
}

InvoicePtr TextToInvoice::target() const
{
    return parts_.app.invoiceManager().find(targets_->currentData().toUuid());
}

void TextToInvoice::showState()
{
    const bool hasFields = !extractedTexts(fields_->fields()).empty();
    text_->setReadOnly(isReading());
    read_->setHidden(isReading());
    read_->setEnabled(isAvailable_ && !text_->toPlainText().trimmed().isEmpty());
    cancel_->setVisible(isReading());
    accept_->setEnabled(hasFields && !isReading());
}

void TextToInvoice::showUnused()
{
    QStringList lines;
    if (!isReading()) {
        for (const UnusedText& each : unusedIn(parts_.app, target(), fields_->fields()))
            lines += QStringLiteral("• ") + parserText(each);
    }
    unused_->setHidden(lines.isEmpty());
    unused_->setText(tr("Cannot be used:") + u'\n' + lines.join(u'\n'));
}

void TextToInvoice::accept()
{
    const InvoicePtr draft = target();
    QUuid id;
    if (targets_->currentIndex() > 0 && draft) {
        id = (*draft)->id;
        if (!parts_.succeeded(fillFromText(parts_.app, id, fields_->fields())))
            return;
    } else {
        const JobResult<InvoicePtr> made = createFromText(parts_.app, fields_->fields());
        if (!parts_.succeeded(made))
            return;
        id = (**made)->id;
    }
    window_.reveal(id);
    window_.openEditor();
    QDialog::accept();
}

/// The button of the frame stops what is going on and closes.
void TextToInvoice::closeEvent(QCloseEvent* event)
{
    if (isReading())
        cancelReading();
    QDialog::closeEvent(event);
}

void TextToInvoice::reject()
{
    if (isReading())
        cancelReading();
    else
        QDialog::reject();
}

TextToInvoice& openTextToInvoice(MainWindow& window)
{
    auto* dialog = window.findChild<TextToInvoice*>();
    if (!dialog)
        dialog = new TextToInvoice(window); // deletes itself
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
    return *dialog;
}

} // namespace ledra
