#include "ui/text/extracted_fields_view.h"

#include "app/reader_language.h"
#include "app/typed_number.h"
#include "model/amount_text.h"
#include "model/document_labels.h"

#include <QComboBox>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

namespace ledra {

namespace {

constexpr int nameColumn = 0;
constexpr int valueColumn = 1;
constexpr int pathRole = Qt::UserRole;
constexpr int kindRole = Qt::UserRole + 1;
constexpr int storedRole = Qt::UserRole + 2; ///< the value as setExtractedText() takes it

struct FieldName
{
    const char* key;
    const char* name;
};

constexpr std::array fieldNames = {
    FieldName{"name", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Name")},
    FieldName{"businessName", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Business")},
    FieldName{"email", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "E-mail")},
    FieldName{"addressLineOne", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Address")},
    FieldName{"addressLineTwo", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Address 2")},
    FieldName{"postcode", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Postcode")},
    FieldName{"city", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "City")},
    FieldName{"state", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "State")},
    FieldName{"countryCode", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Country")},
    FieldName{"description", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Description")},
    FieldName{"quantity", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Quantity")},
    FieldName{"unit", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Unit")},
    FieldName{"unitPrice", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Price")},
    FieldName{"vatPercentage", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "VAT in percent")},
    FieldName{"note", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Note")},
    FieldName{"reference", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Reference")},
    FieldName{"currencyCode", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Currency")},
    FieldName{"serviceDateStart", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Service from")},
    FieldName{"serviceDateEnd", QT_TRANSLATE_NOOP("ledra::ExtractedFieldsView", "Service until")},
};

QString nameOf(const QString& key)
{
    const auto row = std::ranges::find_if(
        fieldNames, [&](const FieldName& each) { return key == QLatin1StringView(each.key); });
    return row == fieldNames.end() ? key : ExtractedFieldsView::tr(row->name);
}

QLocale locale()
{
    return documentLocale(readerLanguage());
}

QString unitName(const QString& stored)
{
    for (const EnumText<Unit>& row : enumTexts<Unit>) {
        if (displayText(row.value) == stored)
            return unitLabel(row.value, 1, readerLanguage());
    }
    return stored;
}

QString shownText(ExtractedKind kind, const QString& stored)
{
    if (kind == ExtractedKind::unit)
        return unitName(stored);
    return kind == ExtractedKind::number && !stored.isEmpty()
               ? numberForTyping(stored.toDouble(), 0, locale())
               : stored;
}

/// What was typed as it is stored; nothing when it is no value of that kind.
std::optional<QString> storedText(ExtractedKind kind, const QString& typed)
{
    if (typed.isEmpty() || kind == ExtractedKind::text)
        return typed;
    if (kind == ExtractedKind::number) {
        const std::optional<double> number = numberTyped(typed, locale());
        return number ? std::optional(QString::number(*number, 'f', QLocale::FloatingPointShortest))
                      : std::nullopt;
    }
    for (const EnumText<Unit>& row : enumTexts<Unit>) {
        if (unitLabel(row.value, 1, readerLanguage()).compare(typed, Qt::CaseInsensitive) == 0)
            return displayText(row.value);
    }
    return std::nullopt;
}

/// Only values are edited; units are chosen.
class ValueDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override
    {
        if (index.column() != valueColumn)
            return nullptr;
        QWidget* editor = nullptr;
        if (index.data(kindRole).value<ExtractedKind>() == ExtractedKind::unit) {
            auto* units = new QComboBox(parent);
            for (const EnumText<Unit>& row : enumTexts<Unit>)
                units->addItem(unitLabel(row.value, 1, readerLanguage()));
            editor = units;
        } else {
            editor = QStyledItemDelegate::createEditor(parent, option, index);
        }
        editor->setAccessibleName(index.siblingAtColumn(nameColumn).data().toString());
        return editor;
    }

    void setEditorData(QWidget* editor, const QModelIndex& index) const override
    {
        if (auto* units = qobject_cast<QComboBox*>(editor))
            units->setCurrentText(index.data().toString());
        else
            QStyledItemDelegate::setEditorData(editor, index);
    }

    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override
    {
        if (const auto* units = qobject_cast<const QComboBox*>(editor))
            model->setData(index, units->currentText());
        else
            QStyledItemDelegate::setModelData(editor, model, index);
    }
};

} // namespace

ExtractedFieldsView::ExtractedFieldsView(QWidget* parent) : QTreeWidget(parent)
{
    setColumnCount(2);
    setHeaderLabels({tr("Field"), tr("Value")});
    setAccessibleName(tr("Fields that were found"));
    setRootIsDecorated(false);
    setIndentation(12);
    setItemDelegate(new ValueDelegate(this));
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::AnyKeyPressed | QAbstractItemView::SelectedClicked);
    constexpr int nameWidth = 150;
    header()->resizeSection(nameColumn, nameWidth);
    header()->setSectionsMovable(false);
    connect(this, &QTreeWidget::itemChanged, this, &ExtractedFieldsView::take);
}

/// Groups begin with "recipient", "items.0" or nothing.
QTreeWidgetItem* ExtractedFieldsView::groupOf(const QString& path)
{
    const QString key = path.section(u'.', 0, -2);
    if (QTreeWidgetItem* group = groups_.value(key))
        return group;
    QString title = tr("Document");
    if (key == QStringLiteral("recipient"))
        title = tr("Recipient");
    else if (!key.isEmpty())
        title = tr("Item %1").arg(key.section(u'.', 1, 1).toInt() + 1);
    auto* group = new QTreeWidgetItem(this, {title}); // which the tree owns
    QFont font = group->font(nameColumn);
    font.setWeight(QFont::DemiBold);
    group->setFont(nameColumn, font);
    group->setFlags(Qt::ItemIsEnabled);
    group->setFirstColumnSpanned(true);
    group->setExpanded(true);
    groups_[key] = group;
    return group;
}

void ExtractedFieldsView::show(const ExtractedText& field)
{
    QTreeWidgetItem*& row = rows_[field.path];
    if (!row) {
        row = new QTreeWidgetItem(groupOf(field.path), {nameOf(field.path.section(u'.', -1))});
        row->setData(valueColumn, pathRole, field.path);
        row->setData(valueColumn, kindRole, QVariant::fromValue(field.kind));
    }
    row->setData(valueColumn, storedRole, field.text);
    row->setText(valueColumn, shownText(field.kind, field.text));
    row->setToolTip(valueColumn, row->text(valueColumn));
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    flags.setFlag(Qt::ItemIsEditable, isComplete_);
    row->setFlags(flags);
}

void ExtractedFieldsView::setFields(const ExtractedInvoice& fields, bool isComplete)
{
    const QSignalBlocker quiet(this);
    fields_ = fields;
    isComplete_ = isComplete;
    const std::vector<ExtractedText> texts = extractedTexts(fields);
    const bool isGrowing = std::ranges::all_of(rows_.keys(), [&](const QString& path) {
        return std::ranges::any_of(texts, [&](const ExtractedText& each) { return each.path == path; });
    });
    if (!isGrowing) {
        clear();
        rows_.clear();
        groups_.clear();
    }
    for (const ExtractedText& field : texts)
        show(field);
    viewport()->update();
}

/// What is no value of the field goes back to the one that holds.
void ExtractedFieldsView::take(QTreeWidgetItem* item)
{
    const auto kind = item->data(valueColumn, kindRole).value<ExtractedKind>();
    const std::optional<QString> stored = storedText(kind, item->text(valueColumn).trimmed());
    const bool isTaken =
        stored && setExtractedText(fields_, item->data(valueColumn, pathRole).toString(), *stored);
    const QString holding = isTaken ? *stored : item->data(valueColumn, storedRole).toString();
    {
        const QSignalBlocker quiet(this);
        item->setData(valueColumn, storedRole, holding);
        item->setText(valueColumn, shownText(kind, holding));
    }
    viewport()->update();
    if (isTaken)
        Q_EMIT edited();
}

} // namespace ledra
