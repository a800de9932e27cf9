#include "ui/editor/item_cell_editors.h"

#include "app/reader_language.h"
#include "app/typed_number.h"
#include "model/document_labels.h"
#include "ui/editor/editor_fields.h"
#include "ui/look/status_colors.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QStringListModel>
#include <QTextLayout>

#include <cmath>

namespace ledra {

namespace {

constexpr int horizontalRoom = 6;
constexpr int verticalRoom = 7;

/// Lines break between words, and within a word that is longer than a line.
QTextOption wrapping(Qt::Alignment alignment)
{
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

/// The height of a text that is broken at a width.
int textHeight(const QString& text, const QFont& font, int width)
{
    constexpr int least = 20;
    QTextLayout layout(QString(text).replace(u'\n', QChar::LineSeparator), font);
    layout.setTextOption(wrapping(Qt::AlignLeft));
    layout.beginLayout();
    double height = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::max(width, least));
        height += line.height();
    }
    layout.endLayout();
    return static_cast<int>(std::ceil(height));
}

/// What a key that ends typing asks for; nothing for any other key.
std::optional<QAbstractItemDelegate::EndEditHint> endBy(const QKeyEvent& event)
{
    const bool isShifted = event.modifiers().testFlag(Qt::ShiftModifier);
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return isShifted ? std::nullopt : std::optional(QAbstractItemDelegate::SubmitModelCache);
    case Qt::Key_Tab:
        return QAbstractItemDelegate::EditNextItem;
    case Qt::Key_Backtab:
        return QAbstractItemDelegate::EditPreviousItem;
    case Qt::Key_Escape:
        return QAbstractItemDelegate::NoHint;
    default:
        return std::nullopt;
    }
}

} // namespace

DescriptionEdit::DescriptionEdit(Suggest suggest, QWidget* parent)
    : QPlainTextEdit(parent),
      suggest_(std::move(suggest)),
      completer_(new QCompleter(new QStringListModel(this), this))
{
    setFrameShape(NoFrame);
    setUndoRedoEnabled(false); // the application's own way back reaches further
    setTabChangesFocus(false); // it goes on to the next cell
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(2);
    completer_->setWidget(this);
    completer_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    connect(completer_, qOverload<const QModelIndex&>(&QCompleter::activated), this,
            [this](const QModelIndex& index) {
                const auto row = static_cast<std::size_t>(index.row());
                if (row < offered_.size())
                    Q_EMIT completed(offered_[row]);
            });
}

void DescriptionEdit::offer()
{
    constexpr qsizetype least = 2;
    const QString text = toPlainText();
    offered_ = text.size() < least ? std::vector<Invoice::Item>() : suggest_(text);
    std::erase_if(offered_, [&](const Invoice::Item& item) { return item.item == text; });
    if (offered_.empty()) {
        completer_->popup()->hide();
        return;
    }
    QStringList texts;
    for (const Invoice::Item& item : offered_)
        texts += item.item.section(u'\n', 0, 0);
    static_cast<QStringListModel*>(completer_->model())->setStringList(texts);
    openSuggestions(*completer_);
}

void DescriptionEdit::keyPressEvent(QKeyEvent* event)
{
    const bool isOffering = completer_->popup()->isVisible();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isOffering && (isEnter || event->key() == Qt::Key_Tab || event->key() == Qt::Key_Escape)) {
        const bool picks = completer_->popup()->selectionModel()->hasSelection();
        if (picks || event->key() == Qt::Key_Escape) {
            event->ignore(); // for the popup
            return;
        }
        completer_->popup()->hide();
    }
    if (const auto hint = endBy(*event)) {
        Q_EMIT finished(*hint);
        return;
    }
    const QString before = toPlainText();
    QPlainTextEdit::keyPressEvent(event);
    if (toPlainText() == before)
        return;
    Q_EMIT edited();
    offer();
}

void DescriptionEdit::insertFromMimeData(const QMimeData* source)
{
    if (source->text().contains(u'\t')) {
        Q_EMIT tablePasted(*source);
        return;
    }
    QPlainTextEdit::insertFromMimeData(source);
    Q_EMIT edited();
}

ItemDelegate::ItemDelegate(RecordEditing& editing, ItemsModel& model, DescriptionEdit::Suggest suggest,
                           QObject* parent)
    : QStyledItemDelegate(parent), editing_(editing), model_(model), suggest_(std::move(suggest))
{}

QWidget* ItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const
{
    QWidget* editor = index.column() == ItemsModel::description ? descriptionEditor(parent, index)
                      : index.column() == ItemsModel::unit      ? unitEditor(parent)
                                                                : numberEditor(parent);
    editor->setAccessibleName(QStringLiteral("%1 %2").arg(
        model_.headerData(index.column(), Qt::Horizontal).toString(), QString::number(index.row() + 1)));
    editor->setAutoFillBackground(true);
    return editor;
}

QWidget* ItemDelegate::descriptionEditor(QWidget* parent, const QPersistentModelIndex& index) const
{
    auto* edit = new DescriptionEdit(suggest_, parent);
    connect(edit, &DescriptionEdit::edited, this, [this, edit] { Q_EMIT self().commitData(edit); });
    connect(edit, &DescriptionEdit::completed, this, [this, edit, index](const Invoice::Item& item) {
        model_.complete(index.row(), item);
        edit->setPlainText(item.item);
        edit->moveCursor(QTextCursor::End);
    });
    connect(edit, &DescriptionEdit::tablePasted, this,
            [this, index](const QMimeData& data) { model_.paste(index.row(), data); });
    connect(edit, &DescriptionEdit::finished, this,
            [this, edit](EndEditHint hint) { Q_EMIT self().closeEditor(edit, hint); });
    return edit;
}

QWidget* ItemDelegate::unitEditor(QWidget* parent) const
{
    auto* box = new QComboBox(parent);
    for (const EnumText<Unit>& row : enumTexts<Unit>)
        box->addItem(unitLabel(row.value, 1, readerLanguage()));
    connect(box, &QComboBox::activated, this, [this, box] { Q_EMIT self().commitData(box); });
    return box;
}

QWidget* ItemDelegate::numberEditor(QWidget* parent) const
{
    auto* line = new QLineEdit(parent);
    line->setAlignment(Qt::AlignRight);
    line->setFrame(false);
    connect(line, &QLineEdit::textEdited, this, [this, line](const QString& text) {
        const bool isWrong = !text.trimmed().isEmpty() && !numberTyped(text, editing_.locale());
        QPalette palette;
        if (isWrong) {
            palette.setColor(QPalette::Text, warningLook().ink());
            editing_.parts().messages.note(tr("“%1” is not a number").arg(text));
        }
        line->setPalette(palette);
        Q_EMIT self().commitData(line);
    });
    return line;
}

/// An editor that is being typed in is left alone as long as it says the same.
void ItemDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const QVariant value = index.data(Qt::EditRole);
    if (auto* box = qobject_cast<QComboBox*>(editor)) {
        box->setCurrentIndex(value.toInt());
    } else if (auto* text = qobject_cast<DescriptionEdit*>(editor)) {
        if (text->toPlainText() != value.toString())
            text->setPlainText(value.toString());
    } else if (auto* line = qobject_cast<QLineEdit*>(editor)) {
        const bool saysTheSame = line->isModified() && numberTyped(line->text(), editing_.locale()) ==
                                                           numberTyped(value.toString(), editing_.locale());
        if (saysTheSame)
            return;
        line->setText(value.toString());
        line->selectAll();
    }
}

void ItemDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    if (const auto* box = qobject_cast<QComboBox*>(editor)) {
        if (!model_.isNewRow(index.row()) || box->currentIndex() != 0)
            model->setData(index, box->currentIndex());
    } else if (const auto* text = qobject_cast<DescriptionEdit*>(editor)) {
        if (!model_.isNewRow(index.row()) || !text->toPlainText().isEmpty())
            model->setData(index, text->toPlainText());
    } else if (const auto* line = qobject_cast<QLineEdit*>(editor)) {
        if (line->isModified())
            model->setData(index, line->text());
    }
}

void ItemDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex&) const
{
    editor->setGeometry(option.rect);
}

QSize ItemDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    int height = option.fontMetrics.height();
    if (index.column() == ItemsModel::description) {
        const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
        const int width = view ? view->visualRect(index).width() : option.rect.width();
        height =
            std::max(height, textHeight(index.data().toString(), option.font, width - 2 * horizontalRoom));
    }
    return {40, height + 2 * verticalRoom};
}

void ItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    painter->save();
    if (option.state.testFlag(QStyle::State_Selected))
        painter->fillRect(option.rect, option.palette.brush(QPalette::Midlight));
    const bool isFaint = model_.isNewRow(index.row()) || index.column() == ItemsModel::total;
    painter->setPen(option.palette.color(isFaint ? QPalette::PlaceholderText : QPalette::Text));
    const auto alignment = static_cast<Qt::Alignment>(index.data(Qt::TextAlignmentRole).toInt());
    painter->drawText(
        QRectF(option.rect).adjusted(horizontalRoom, verticalRoom, -horizontalRoom, -verticalRoom + 4),
        index.data().toString(), wrapping(alignment));
    painter->restore();
}

} // namespace ledra
