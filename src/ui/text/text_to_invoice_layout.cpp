#include "ui/look/color_keeper.h"
#include "ui/look/status_colors.h"
#include "ui/main_window.h"
#include "ui/text/extracted_fields_view.h"
#include "ui/text/text_to_invoice.h"
#include "ui/text/text_well.h"

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

QWidget* TextToInvoice::makeNotice()
{
    notice_ = new QWidget(this);
    notice_->setObjectName(QStringLiteral("parser-notice"));
    notice_->setAutoFillBackground(true);
    keepColors(*notice_, warningLook());
    auto* row = new QHBoxLayout(notice_);
    unavailable_ = new QLabel(notice_);
    unavailable_->setWordWrap(true);
    unavailable_->setTextFormat(Qt::PlainText);
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
    keepColors(*unused_, warningLook());
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

} // namespace ledra
