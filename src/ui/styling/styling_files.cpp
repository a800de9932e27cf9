#include "app/reader_language.h"
#include "model/amount_text.h"
#include "ui/styling/logo_well.h"
#include "ui/styling/styling_sections.h"

#include <QFileDialog>
#include <QFontDatabase>
#include <QSignalBlocker>
#include <QSlider>

namespace ledra {

namespace {

Access<bool> recolorLogo(StylingEditing& editing)
{
    return {[&editing] { return editing.styling().recolorLogo; },
            [&editing](const bool& isOn) {
                editing.change([&](Styling& styling) { styling.recolorLogo = isOn; }, EditKind::single);
            }};
}

/// Asks for a file and hands it on; the dialog stands beside the work, not in its way.
void chooseFile(QWidget* parent, const QString& title, const QString& filter,
                const std::function<void(const QString&)>& take)
{
    auto* dialog = new QFileDialog(parent, title, QString(), filter);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    QObject::connect(dialog, &QFileDialog::fileSelected, parent, take);
    dialog->open();
}

} // namespace

LogoSection::LogoSection(StylingEditing& editing, QWidget* parent) : Section(tr("Logo"), false, parent)
{
    auto* well = new LogoWell(this);
    auto* choose = new QPushButton(tr("Choose Logo…"), this);
    auto* remove = new QPushButton(tr("Remove Logo"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(choose);
    buttons->addWidget(remove);
    buttons->addStretch();
    auto* form = new FieldForm(this);
    constexpr int gap = 6;
    form->setContentsMargins(0, gap, 0, 0);
    content()->addWidget(well);
    content()->addLayout(buttons);
    content()->addWidget(form);
    addSize(editing, form);
    QCheckBox* recolor = form->addToggle(tr("In the color of the document"), recolorLogo(editing));
    recolor->setToolTip(tr("Only drawings (SVG) can take another color"));
    const auto ask = [this, &editing] {
        chooseFile(this, tr("Choose Logo"), tr("Images (*.svg *.png *.jpg *.jpeg *.webp)"),
                   [&editing](const QString& path) { editing.tell(editing.jobs().importLogo(path)); });
    };
    connect(well, &LogoWell::clicked, this, ask);
    connect(choose, &QPushButton::clicked, this, ask);
    connect(well, &LogoWell::dropped, this,
            [&editing](const QString& path) { editing.tell(editing.jobs().importLogo(path)); });
    connect(remove, &QPushButton::clicked, this, [&editing] { editing.tell(editing.jobs().removeLogo()); });
    connect(&editing, &StylingEditing::changed, form, &FieldForm::refresh);
    form->follow([&editing, well, remove, recolor] {
        const std::optional<QString>& logo = editing.styling().logo;
        well->setLogo(logo);
        remove->setEnabled(logo.has_value());
        recolor->setEnabled(!logo || !logo->startsWith(u"data:"));
    });
}

void LogoSection::addSize(StylingEditing& editing, FieldForm* form)
{
    constexpr double stepsOfOne = 10;
    auto* box = new QWidget(form);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    auto* slider = new QSlider(Qt::Horizontal, box);
    slider->setRange(5, 60); // tenths of a centimetre
    slider->setPageStep(5);
    slider->setFocusPolicy(Qt::StrongFocus);
    auto* text = new QLabel(box);
    text->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00.0 cm")));
    text->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row->addWidget(slider, 1);
    row->addWidget(text);
    box->setFocusProxy(slider);
    form->addField(tr("Height"), box);
    slider->setAccessibleName(tr("Height of the logo"));
    connect(slider, &QSlider::valueChanged, this, [&editing](int value) {
        editing.change([&](Styling& styling) { styling.logoSize = value / stepsOfOne; }, EditKind::typing);
    });
    form->follow([&editing, slider, text] {
        const double size = editing.styling().logoSize;
        const QSignalBlocker quiet(slider);
        slider->setValue(qRound(size * stepsOfOne));
        text->setText(tr("%1 cm").arg(documentLocale(readerLanguage()).toString(size, 'f', 1)));
    });
}

StyleSheetSection::StyleSheetSection(StylingEditing& editing, QWidget* parent)
    : Section(tr("Style sheet"), false, parent),
      editing_(editing),
      text_(new QPlainTextEdit(this)),
      remove_(new QPushButton(tr("Remove Style Sheet"), this))
{
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setTabChangesFocus(true);
    text_->setPlaceholderText(QStringLiteral(".headline { letter-spacing: 0.05rem; }"));
    text_->setAccessibleName(tr("Style sheet"));
    constexpr int lines = 9;
    text_->setFixedHeight(lines * text_->fontMetrics().lineSpacing() + 14);
    auto* import = new QPushButton(tr("Import Style Sheet…"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(import);
    buttons->addWidget(remove_);
    buttons->addStretch();
    content()->addWidget(text_);
    content()->addLayout(buttons);
    constexpr std::chrono::milliseconds quiet{300};
    pause_.setSingleShot(true);
    pause_.setInterval(quiet);
    connect(&pause_, &QTimer::timeout, this, &StyleSheetSection::write);
    connect(text_, &QPlainTextEdit::textChanged, &pause_, qOverload<>(&QTimer::start));
    connect(import, &QPushButton::clicked, this, [this] {
        chooseFile(this, tr("Import Style Sheet"), tr("Style sheets (*.css)"), [this](const QString& path) {
            pause_.stop();
            editing_.tell(editing_.jobs().importStyleSheet(path));
        });
    });
    connect(remove_, &QPushButton::clicked, this, [this] {
        pause_.stop();
        editing_.tell(editing_.jobs().setStyleSheet(QString(), EditKind::single));
    });
    connect(&editing, &StylingEditing::changed, this, &StyleSheetSection::show);
    show();
}

void StyleSheetSection::show()
{
    const Styling& styling = editing_.styling();
    const QString css = styling.css.value_or(QString());
    remove_->setEnabled(!css.isEmpty());
    if (std::exchange(shown_, styling.id) != styling.id)
        pause_.stop(); // it belongs to another profile
    if (pause_.isActive() || text_->toPlainText() == css)
        return;
    const QSignalBlocker quiet(text_);
    text_->setPlainText(css);
}

StyleSheetSection::~StyleSheetSection()
{
    if (pause_.isActive())
        write();
}

void StyleSheetSection::write()
{
    pause_.stop();
    const UndoableStyling::Done done = editing_.jobs().setStyleSheet(text_->toPlainText(), EditKind::typing);
    if (!done)
        editing_.tell(done.error());
}

} // namespace ledra
