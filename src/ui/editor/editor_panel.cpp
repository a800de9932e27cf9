#include "ui/editor/editor_panel.h"

#include "model/displayed_number.h"
#include "ui/editor/recipient_section.h"
#include "ui/editor/record_sections.h"
#include "ui/look/icons.h"
#include "ui/look/status_colors.h"
#include "ui/look/undo_guard.h"

#include <QApplication>
#include <QUndoStack>

namespace ledra {

namespace {

const char* typeText(InvoiceType type)
{
    constexpr std::array texts = {QT_TRANSLATE_NOOP("ledra::EditorPanel", "Invoice"),
                                  QT_TRANSLATE_NOOP("ledra::EditorPanel", "Cancellation"),
                                  QT_TRANSLATE_NOOP("ledra::EditorPanel", "Quote")};
    return texts.at(static_cast<std::size_t>(type));
}

} // namespace

EditorPanel::EditorPanel(const WindowParts& parts, QWidget* parent)
    : QWidget(parent), parts_(parts), editing_(parts), scroll_(new QScrollArea(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHeader());
    layout->addWidget(makeLockNotice());
    layout->addWidget(scroll_, 1);
    auto* form = new QWidget;
    auto* sections = new QVBoxLayout(form);
    sections->setContentsMargins(16, 12, 16, 20);
    sections->setSpacing(20);
    addSections(sections);
    scroll_->setWidget(form);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setFocusPolicy(Qt::NoFocus); // its fields take the focus
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMinimumWidth(400);
    connect(&editing_, &RecordEditing::lockChanged, this, &EditorPanel::showLock);
    connect(&editing_, &RecordEditing::changed, this, &EditorPanel::showHeader);
    new UndoGuard(*this);
    showLock();
}

QWidget* EditorPanel::makeHeader()
{
    auto* header = new QWidget(this);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(16, 8, 8, 4);
    title_ = new QLabel(header);
    QFont font = title_->font();
    constexpr double larger = 1.2;
    font.setPointSizeF(font.pointSizeF() * larger);
    font.setWeight(QFont::DemiBold);
    title_->setFont(font);
    title_->setTextFormat(Qt::PlainText);
    row->addWidget(title_, 1);
    auto* close = new QToolButton(header);
    close->setIcon(lineIcon("close"));
    close->setToolTip(tr("Close Editor"));
    close->setAccessibleName(tr("Close Editor"));
    connect(close, &QToolButton::clicked, this, &EditorPanel::closeWanted);
    row->addWidget(close);
    return header;
}

QWidget* EditorPanel::makeLockNotice()
{
    lockNotice_ = new QWidget(this);
    lockNotice_->setAutoFillBackground(true);
    auto* column = new QVBoxLayout(lockNotice_);
    column->setContentsMargins(16, 10, 16, 10);
    lockText_ = new QLabel(lockNotice_);
    lockText_->setWordWrap(true);
    column->addWidget(lockText_);
    auto* buttons = new QHBoxLayout;
    cancelAndDuplicate_ = new QPushButton(lockNotice_);
    editAnyway_ = new QPushButton(tr("Edit anyway"), lockNotice_);
    buttons->addWidget(cancelAndDuplicate_);
    buttons->addWidget(editAnyway_);
    buttons->addStretch();
    column->addLayout(buttons);
    connect(cancelAndDuplicate_, &QPushButton::clicked, this, &EditorPanel::cancelAndDuplicate);
    connect(editAnyway_, &QPushButton::clicked, &editing_, &RecordEditing::unlock);
    return lockNotice_;
}

void EditorPanel::addSections(QVBoxLayout* layout)
{
    recipient_ = new RecipientSection(editing_, this);
    guarded_ = {recipient_, new DatesSection(editing_, this), new NumberSection(editing_, this),
                new ItemsSection(editing_, this)};
    for (QWidget* section : guarded_)
        layout->addWidget(section);
    layout->addWidget(new NoteSection(editing_, this));
    for (QWidget* section : std::initializer_list<QWidget*>{new TermsSection(editing_, this),
                                                            new SenderSection(editing_, this)}) {
        layout->addWidget(section);
        guarded_.push_back(section);
    }
    layout->addStretch();
}

void EditorPanel::setRecord(const InvoicePtr& record)
{
    editing_.setRecord(record);
}

void EditorPanel::start()
{
    if (!editing_.isLocked())
        recipient_->firstField()->setFocus(Qt::OtherFocusReason);
}

void EditorPanel::showHeader()
{
    if (editing_.record())
        title_->setText(QStringLiteral("%1 %2").arg(tr(typeText(editing_.invoice().type)),
                                                    displayedNumber(editing_.invoice(), editing_.profile())));
}

void EditorPanel::showLock()
{
    const bool isLocked = editing_.isLocked();
    const bool isGuardedRecord = editing_.record() && isGuarded(editing_.invoice());
    for (QWidget* section : guarded_)
        section->setEnabled(!isLocked);
    lockNotice_->setVisible(isGuardedRecord);
    if (!isGuardedRecord)
        return;
    const StatusLook& look = isLocked ? statusLook(editing_.invoice().status) : warningLook();
    QPalette palette;
    palette.setColor(QPalette::Window, look.ground());
    lockNotice_->setPalette(palette);
    QPalette ink;
    ink.setColor(QPalette::WindowText, look.ink());
    lockText_->setPalette(ink);
    const bool isInvoice =
        editing_.invoice().type == InvoiceType::invoice && editing_.invoice().status != Status::cancelled;
    lockText_->setText(
        isLocked ? tr("This document has left the house and is read-only. Note and reference can still be "
                      "changed.")
                 : tr("Others may hold this document as it was. What you change here differs from theirs."));
    cancelAndDuplicate_->setText(isInvoice ? tr("Cancel and duplicate") : tr("Duplicate"));
    cancelAndDuplicate_->setVisible(isLocked);
    editAnyway_->setVisible(isLocked);
}

void EditorPanel::cancelAndDuplicate()
{
    const QUuid id = editing_.invoice().id;
    const bool cancels =
        editing_.invoice().type == InvoiceType::invoice && editing_.invoice().status != Status::cancelled;
    UndoableJobs jobs = parts_.app.undoableJobs();
    QUndoStack& stack = parts_.app.undoStack();
    stack.beginMacro(tr("Cancel and duplicate"));
    const bool isCancelled = !cancels || parts_.succeeded(jobs.cancel(id));
    const JobResult<InvoicePtr> copy = isCancelled ? jobs.duplicate(id) : JobResult<InvoicePtr>();
    stack.endMacro();
    if (isCancelled && parts_.succeeded(copy))
        Q_EMIT made((**copy)->id);
}

} // namespace ledra
