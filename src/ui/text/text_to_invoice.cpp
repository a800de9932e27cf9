#include "ui/text/text_to_invoice.h"

#include "app/extraction_jobs.h"
#include "model/displayed_number.h"
#include "ui/look/status_colors.h"
#include "ui/main_window.h"
#include "ui/text/extracted_fields_view.h"
#include "ui/text/parser_texts.h"
#include "ui/text/text_well.h"

#include <QCloseEvent>
#include <QSplitter>
#include <QVBoxLayout>

namespace ledra {

namespace {

QLabel* makeHint(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

QVBoxLayout* columnIn(QWidget* box)
{
    auto* column = new QVBoxLayout(box); // which the box owns
    column->setContentsMargins(0, 0, 0, 0);
    return column;
}

} // namespace

TextToInvoice::TextToInvoice(MainWindow& window) : QDialog(&window), window_(window), parts_(window.parts())
{
    setWindowTitle(tr("New Invoice from Text"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->addWidget(makeNotice());
    auto* halves = new QSplitter(this);
    halves->setChildrenCollapsible(false);
    constexpr int rim = 12;
    halves->setHandleWidth(rim);
    halves->setStyleSheet(QStringLiteral("QSplitter::handle { background: transparent; }"));
    halves->addWidget(makeText());
    halves->addWidget(makeFields());
    halves->setStretchFactor(0, 1);
    halves->setStretchFactor(1, 1);
    layout->addWidget(halves, 1);
    layout->addWidget(makeButtons());
    resize(940, 600);
    showTargets();
    showState();
    askAvailability();
    text_->setFocus();
}

TextToInvoice::~TextToInvoice() = default;

QWidget* TextToInvoice::makeNotice()
{
    notice_ = new QWidget(this);
    notice_->setObjectName(QStringLiteral("parser-notice"));
    notice_->setAutoFillBackground(true);
    QPalette ground;
    ground.setColor(QPalette::Window, warningLook().ground());
    notice_->setPalette(ground);
    auto* row = new QHBoxLayout(notice_);
    unavailable_ = new QLabel(notice_);
    unavailable_->setWordWrap(true);
    unavailable_->setTextFormat(Qt::PlainText);
    QPalette ink;
    ink.setColor(QPalette::WindowText, warningLook().ink());
    unavailable_->setPalette(ink);
    auto* again = new QPushButton(tr("Try Again"), notice_);
    auto* settings = new QPushButton(tr("Text Parser Settings…"), notice_);
    for (QPushButton* button : {again, settings})
        button->setAutoDefault(false);
    row->addWidget(unavailable_, 1);
    row->addWidget(again);
    row->addWidget(settings);
    connect(again, &QPushButton::clicked, this, &TextToInvoice::askAvailability);
    connect(settings, &QPushButton::clicked, this,
            [this] { window_.openSettings(QStringLiteral("Text Parser")); });
    notice_->hide();
    return notice_;
}

QWidget* TextToInvoice::makeText()
{
    auto* box = new QWidget(this);
    QVBoxLayout* column = columnIn(box);
    text_ = new TextWell(box);
    text_->setPlaceholderText(tr("Paste or drop an e-mail, a note, an address or a list of services here."));
    text_->setAccessibleName(tr("Text"));
    auto* row = new QHBoxLayout;
    status_ = makeHint(tr("A model on this computer reads the text. Nothing leaves the computer."), box);
    read_ = new QPushButton(tr("Read Text"), box);
    cancel_ = new QPushButton(tr("Stop"), box);
    for (QPushButton* button : {read_, cancel_})
        button->setAutoDefault(false);
    read_->setShortcut(QKeySequence(QStringLiteral("Ctrl+Return")));
    row->addWidget(status_, 1);
    row->addWidget(read_);
    row->addWidget(cancel_);
    column->addWidget(text_, 1);
    column->addLayout(row);
    connect(text_, &QPlainTextEdit::textChanged, this, &TextToInvoice::showState);
    connect(text_, &TextWell::refused, status_, &QLabel::setText);
    connect(read_, &QPushButton::clicked, this, &TextToInvoice::read);
    connect(cancel_, &QPushButton::clicked, this, &TextToInvoice::cancelReading);
    return box;
}

QWidget* TextToInvoice::makeFields()
{
    auto* box = new QWidget(this);
    QVBoxLayout* column = columnIn(box);
    fields_ = new ExtractedFieldsView(box);
    unused_ = new QLabel(box);
    unused_->setObjectName(QStringLiteral("unused-texts"));
    unused_->setWordWrap(true);
    unused_->setTextFormat(Qt::PlainText);
    QPalette ink;
    ink.setColor(QPalette::WindowText, warningLook().ink());
    unused_->setPalette(ink);
    unused_->hide();
    column->addWidget(fields_, 1);
    column->addWidget(unused_);
    connect(fields_, &ExtractedFieldsView::edited, this, [this] {
        showState();
        showUnused();
    });
    return box;
}

QWidget* TextToInvoice::makeButtons()
{
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 6, 0, 0);
    targets_ = new QComboBox(box);
    targets_->setAccessibleName(tr("What becomes of it"));
    targets_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* close = new QPushButton(tr("Close"), box);
    close->setAutoDefault(false);
    accept_ = new QPushButton(tr("Use"), box);
    accept_->setDefault(true);
    row->addWidget(targets_);
    row->addStretch();
    row->addWidget(close);
    row->addWidget(accept_);
    connect(targets_, &QComboBox::currentIndexChanged, this, &TextToInvoice::showUnused);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    connect(accept_, &QPushButton::clicked, this, &TextToInvoice::accept);
    return box;
}

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
