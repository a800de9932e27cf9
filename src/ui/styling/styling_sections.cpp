#include "ui/styling/styling_sections.h"

#include "ui/look/status_colors.h"
#include "ui/styling/color_field.h"
#include "ui/styling/face_name.h"
#include "ui/styling/font_picker.h"

#include <QSignalBlocker>

#include <limits>

namespace ledra {

namespace {

constexpr const char* choiceTexts = "Choices"; ///< the context in which the choices are translated

FieldForm* addForm(StylingEditing& editing, Section& section)
{
    auto* form = new FieldForm(&section);
    section.content()->addWidget(form);
    QObject::connect(&editing, &StylingEditing::changed, form, &FieldForm::refresh);
    return form;
}

Access<bool> access(StylingEditing& editing, bool Styling::* member)
{
    return {[&editing, member] { return editing.styling().*member; },
            [&editing, member](const bool& isOn) {
                editing.change([&](Styling& styling) { styling.*member = isOn; }, EditKind::single);
            }};
}

template <TextEnum E>
Access<QString> access(StylingEditing& editing, E Styling::* member)
{
    return {[&editing, member] { return rawText(editing.styling().*member); },
            [&editing, member](const QString& text) {
                const E value = enumFromRawValue<E>(text.toStdString()).value_or(E());
                editing.change([&](Styling& styling) { styling.*member = value; }, EditKind::single);
            }};
}

} // namespace

PageSection::PageSection(StylingEditing& editing, QWidget* parent) : Section(tr("Page"), false, parent)
{
    FieldForm* form = addForm(editing, *this);
    form->addChoice(tr("Paper"), choicesOf<PageFormat>(choiceTexts), access(editing, &Styling::pageFormat));
    form->addChoice(tr("Background"), choicesOf<BackgroundPattern>(choiceTexts),
                    access(editing, &Styling::backgroundPattern));
    form->addToggle(tr("Page headline"), access(editing, &Styling::pageHeadline));
    form->addToggle(tr("Sender above the recipient"), access(editing, &Styling::addressLine));
    form->addToggle(tr("Column at the margin"), access(editing, &Styling::marginalColumn))
        ->setToolTip(tr("Sender details stand in it; without it they stand in the footer"));
}

// ---- fonts

struct FontsSection::Slot
{
    const char* label;
    QString Styling::* family;
    QString Styling::* weight;
    std::optional<QString> Styling::* face;
};

FontsSection::FontsSection(StylingEditing& editing, QWidget* parent) : Section(tr("Fonts"), false, parent)
{
    constexpr std::array places = {
        Slot{QT_TR_NOOP("Headline"), &Styling::headlineFont, &Styling::headlineFontWeight,
             &Styling::headlineFontFace},
        Slot{QT_TR_NOOP("Text"), &Styling::primaryFont, &Styling::primaryFontWeight,
             &Styling::primaryFontFace},
        Slot{QT_TR_NOOP("Secondary text"), &Styling::secondaryFont, &Styling::secondaryFontWeight,
             &Styling::secondaryFontFace},
        Slot{QT_TR_NOOP("Label text"), &Styling::labelFont, &Styling::labelFontWeight,
             &Styling::labelFontFace},
    };
    FieldForm* form = addForm(editing, *this);
    for (const Slot& slot : places)
        addSlot(editing, form, slot);
    form->addToggle(tr("Labels in small capitals"), access(editing, &Styling::smallCapsLabels));
}

namespace {

/// The faces of a family; chosen is the one that is named, else the upright one of the nearest weight.
void showFaces(QComboBox& box, const std::vector<FontCut>& cuts, const QString& weight,
               const std::optional<QString>& named)
{
    const QSignalBlocker quiet(box);
    box.clear();
    box.setEnabled(cuts.size() > 1);
    int chosen = -1;
    int nearest = std::numeric_limits<int>::max();
    for (const FontCut& cut : cuts) {
        box.addItem(faceName(cut.displayName), cut.faceID);
        const int distance = std::abs(weightNumber(cut.cssWeight) - weightNumber(weight));
        const bool isNamed = named == cut.faceID;
        if (isNamed || (!cut.isItalic && distance < nearest)) {
            chosen = box.count() - 1;
            nearest = isNamed ? -1 : distance;
        }
    }
    box.setCurrentIndex(chosen);
}

} // namespace

void FontsSection::addSlot(StylingEditing& editing, FieldForm* form, const Slot& slot)
{
    const QString label = tr(slot.label);
    auto* box = new QWidget(form);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    auto* row = new QHBoxLayout;
    auto* picker = new FontPicker(editing.fonts(), box);
    auto* face = new QComboBox(box);
    auto* warning = new QLabel(box);
    warning->setWordWrap(true);
    face->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    face->setMinimumContentsLength(9);
    face->setFocusPolicy(Qt::StrongFocus);
    face->setAccessibleName(tr("Face: %1").arg(label));
    row->addWidget(picker, 1);
    row->addWidget(face);
    column->addLayout(row);
    column->addWidget(warning);
    box->setFocusProxy(picker);
    form->addField(label, box);
    picker->setAccessibleName(label);
    connect(picker, &FontPicker::picked, this,
            [&editing, slot](const QString& family) { setFamily(editing, slot, family); });
    connect(face, &QComboBox::activated, this, [&editing, slot, face](int chosen) {
        setFace(editing, slot, face->itemData(chosen).toString());
    });
    form->follow([&editing, slot, picker, face, warning] {
        const Styling& styling = editing.styling();
        const QString& family = styling.*slot.family;
        const QString missing = editing.fonts().missingFamilyWarning(family);
        picker->setFamily(family);
        picker->setAccessibleDescription(missing);
        QPalette ink;
        ink.setColor(QPalette::WindowText, warningLook().ink());
        warning->setPalette(ink);
        warning->setText(missing);
        warning->setHidden(missing.isEmpty());
        const std::vector<FontCut>* cuts = editing.fonts().cutsOf(family);
        showFaces(*face, cuts ? *cuts : std::vector<FontCut>(), styling.*slot.weight, styling.*slot.face);
    });
}

void FontsSection::setFamily(StylingEditing& editing, const Slot& slot, const QString& family)
{
    editing.change(
        [&](Styling& styling) {
            styling.*slot.family = family;
            styling.*slot.weight = QStringLiteral("400");
            styling.*slot.face = std::nullopt;
        },
        EditKind::single);
}

void FontsSection::setFace(StylingEditing& editing, const Slot& slot, const QString& faceID)
{
    const FontCut* cut = editing.fonts().cut(faceID);
    if (!cut)
        return;
    editing.change(
        [&](Styling& styling) {
            styling.*slot.weight = cut->cssWeight;
            styling.*slot.face = cut->faceID;
        },
        EditKind::single);
}

// ---- colours

ColorsSection::ColorsSection(StylingEditing& editing, QWidget* parent) : Section(tr("Colors"), false, parent)
{
    FieldForm* form = addForm(editing, *this);
    const auto addColor = [&](const QString& label, QString Styling::* member) {
        auto* field = new ColorField(label, form);
        form->addField(label, field);
        connect(field, &ColorField::picked, this, [&editing, member](const QString& digits) {
            editing.change([&](Styling& styling) { styling.*member = digits; }, EditKind::typing);
        });
        connect(field, &ColorField::refused, this, [&editing](const QString& line) { editing.tell(line); });
        form->follow([&editing, member, field] { field->setColor(editing.styling().*member); });
    };
    addColor(tr("Primary color"), &Styling::primaryColor);
    addColor(tr("Accent color"), &Styling::accentColor);
    form->addHint(tr("The accent color is used for"));
    for (const EnumText<AccentColorUsage>& usage : enumTexts<AccentColorUsage>) {
        const QByteArray text = displayText(usage.value).toUtf8();
        const QString label = QCoreApplication::translate(choiceTexts, text.constData());
        const Access<bool> isUsed = {
            [&editing, usage] { return editing.styling().accentColorUsage.contains(usage.value); },
            [&editing, usage](const bool& isOn) {
                editing.change(
                    [&](Styling& styling) {
                        if (isOn)
                            styling.accentColorUsage.insert(usage.value);
                        else
                            styling.accentColorUsage.erase(usage.value);
                    },
                    EditKind::single);
            }};
        form->addToggle(label, isUsed)->setAccessibleName(tr("Accent color: %1").arg(label));
    }
}

// ---- tables

TableSection::TableSection(StylingEditing& editing, QWidget* parent)
    : Section(tr("Item table"), false, parent)
{
    FieldForm* form = addForm(editing, *this);
    form->addToggle(tr("Tinted rows"), access(editing, &Styling::tintRowBackground));
    QComboBox* lines =
        form->addChoice(tr("Lines"), choicesOf<LineStyle>(choiceTexts), access(editing, &Styling::lineStyle));
    lines->setToolTip(tr("Lines stand between rows that are not tinted"));
    form->follow([&editing, lines] { lines->setEnabled(!editing.styling().tintRowBackground); });
    form->addToggle(tr("Fill the page with empty rows"), access(editing, &Styling::emptyItemRows));
}

} // namespace ledra
