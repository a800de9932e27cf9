#include "ui/assistant/look_step.h"

#include "app/document_looks.h"
#include "render/invoice_document.h"
#include "render/web_font_manager.h"
#include "ui/styling/color_field.h"

#include <QRadioButton>
#include <QVBoxLayout>

namespace ledra {

namespace {

constexpr QSize thumbnail(300, 430); // pixels; a page of A4 and a rim

QString translated(const char* text)
{
    return QCoreApplication::translate("DocumentLook", text);
}

} // namespace

LookStep::LookStep(const FirstStartSetting& setting, QWidget* parent)
    : QWidget(parent), parts_(setting.parts), draft_(setting.draft), looks_(new QButtonGroup(this))
{
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(20);
    auto* choices = new QVBoxLayout;
    choices->addWidget(makeChoices());
    choices->addSpacing(12);
    choices->addWidget(makeDetails());
    choices->addStretch();
    columns->addLayout(choices, 1);
    preview_ = new DocumentPreview(parts_.engine, parts_.app.console(), this); // Tab comes to it last
    preview_->setFixedSize(thumbnail);
    preview_->setAccessibleName(tr("Example in the chosen look"));
    columns->addWidget(preview_, 0, Qt::AlignTop);
    preview_->setZoom(preview_->factorThatFits());
    preview_->clear(); // a view that shows its first page in an open window makes the window anew, elsewhere
    connect(&draft_, &FirstStartDraft::changed, this, &LookStep::showState);
    showState();
}

QWidget* LookStep::makeChoices()
{
    auto* box = new QWidget(this);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    for (const DocumentLook& look : documentLooks()) {
        auto* choice = new QRadioButton(translated(look.name), box);
        choice->setAccessibleDescription(translated(look.text));
        looks_->addButton(choice, static_cast<int>(column->count() / 2));
        column->addWidget(choice);
        auto* text = new QLabel(translated(look.text), box);
        text->setWordWrap(true);
        text->setForegroundRole(QPalette::PlaceholderText);
        constexpr int besideTheMark = 22;
        text->setContentsMargins(besideTheMark, 0, 0, 4);
        column->addWidget(text);
    }
    connect(looks_, &QButtonGroup::idClicked, this, [this](int chosen) {
        const DocumentLook& look = documentLooks()[static_cast<std::size_t>(chosen)];
        draft_.changeStyling([&](Styling& styling) { takeLook(styling, look); });
    });
    return box;
}

QWidget* LookStep::makeDetails()
{
    auto* form = new FieldForm(this);
    const auto addColor = [&](const QString& label, QString Styling::* member) {
        auto* field = new ColorField(label, form);
        form->addJudged(label, field);
        connect(field, &ColorField::picked, this, [this, member, form, field](const QString& digits) {
            form->say(field, QString());
            draft_.changeStyling([&](Styling& styling) { styling.*member = digits; });
        });
        connect(field, &ColorField::refused, form,
                [form, field](const QString& line) { form->refuse(field, line); });
        form->follow([this, member, field] { field->setColor(draft_.styling().*member); });
    };
    addColor(tr("Primary color"), &Styling::primaryColor);
    addColor(tr("Accent color"), &Styling::accentColor);
    form->addChoice(tr("Paper"), choicesOf<PageFormat>("Choices"),
                    {[this] { return rawText(draft_.styling().pageFormat); },
                     [this](const QString& text) {
                         draft_.changeStyling([&](Styling& styling) {
                             styling.pageFormat =
                                 enumFromRawValue<PageFormat>(text.toStdString()).value_or(PageFormat::a4);
                         });
                     }});
    form->addToggle(tr("Column at the margin"),
                    {[this] { return draft_.styling().marginalColumn; },
                     [this](const bool& isOn) {
                         draft_.changeStyling([&](Styling& styling) { styling.marginalColumn = isOn; });
                     }});
    connect(&draft_, &FirstStartDraft::changed, form, &FieldForm::refresh);
    return form;
}

void LookStep::showState()
{
    looks_->setExclusive(false); // a styling of one's own has no look
    for (QAbstractButton* choice : looks_->buttons())
        choice->setChecked(
            hasLook(draft_.styling(), documentLooks()[static_cast<std::size_t>(looks_->id(choice))]));
    looks_->setExclusive(true);
    if (isVisible())
        showExample();
}

void LookStep::showExample()
{
    DocumentSetting setting = parts_.app.documentSetting();
    setting.profile = draft_.profile();
    setting.styling = draft_.styling();
    parts_.fonts.loadFor(setting.styling);
    preview_->show(
        std::make_shared<const InvoiceDocument>(
            exampleInvoice(setting.profile, parts_.app.clock(), parts_.app.ids()), setting, parts_.fonts),
        !std::exchange(isShown_, true));
}

void LookStep::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    showExample();
}

} // namespace ledra
