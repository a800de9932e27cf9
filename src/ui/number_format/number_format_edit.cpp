#include "ui/number_format/number_format_edit.h"

#include "model/number_format.h"
#include "ui/chips/token_button.h"
#include "ui/look/color_keeper.h"
#include "ui/look/status_colors.h"
#include "ui/number_format/number_format_language.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QMenu>

namespace ledra {

namespace {

QString kindName(NumberFormatChipKind kind)
{
    return QCoreApplication::translate("NumberFormatChips", displayText(kind).toUtf8().constData());
}

QString tokenText(const char16_t* token)
{
    return u'{' + QString::fromUtf16(token) + u'}';
}

} // namespace

NumberFormatEdit::NumberFormatEdit(QWidget* parent)
    : QWidget(parent),
      line_(new ChipLineEdit(std::make_unique<NumberFormatLanguage>(), this)),
      problem_(new QLabel(this)),
      sample_(new QLabel(this))
{
    line_->setAccessibleName(tr("Number format"));
    line_->setToolTip(tr("Variables are chips among free text. Alt and an arrow key move a chip."));
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(4);
    for (const NumberFormatChipTypeDefinition& type : numberFormatChipTypes())
        buttons->addWidget(makeButton(type));
    buttons->addStretch();
    for (QLabel* label : {problem_, sample_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->hide();
    }
    keepColors(*problem_, warningLook());
    sample_->setForegroundRole(QPalette::PlaceholderText);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(line_);
    layout->addLayout(buttons);
    layout->addWidget(makeTexts());
    setFocusProxy(line_);
    connect(line_, &ChipLineEdit::edited, this, &NumberFormatEdit::edited);
}

/// What changes with each letter stands below the buttons and has its room: nothing moves under the mouse.
QWidget* NumberFormatEdit::makeTexts()
{
    auto* texts = new QWidget(this);
    auto* column = new QVBoxLayout(texts);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(problem_);
    column->addWidget(sample_);
    column->addStretch();
    texts->setMinimumHeight(2 * fontMetrics().height() + column->spacing());
    return texts;
}

/// Inserts the usual variable of a kind; its menu has the others.
QWidget* NumberFormatEdit::makeButton(const NumberFormatChipTypeDefinition& type)
{
    auto* button = new TokenButton(tokenText(type.defaultToken), kindName(type.kind), *line_, this);
    if (type.tokens.size() > 1) {
        auto* menu = new QMenu(button);
        for (const char16_t* each : type.tokens) {
            const QString token = tokenText(each);
            menu->addAction(NumberFormatLanguage().label(token), line_, [this, token] {
                line_->insertToken(token);
                line_->setFocus();
            });
        }
        button->setMenu(menu);
        button->setPopupMode(QToolButton::MenuButtonPopup);
    }
    return button;
}

void NumberFormatEdit::setFormat(const QString& format, const QUuid& owner)
{
    if (std::exchange(owner_, owner) == owner)
        line_->setText(format);
    else
        line_->start(format);
}

void NumberFormatEdit::setSample(const QString& text)
{
    sample_->setText(text);
    sample_->setHidden(text.isEmpty());
}

void NumberFormatEdit::setProblem(const QString& text)
{
    problem_->setText(text);
    problem_->setHidden(text.isEmpty());
    line_->setAccessibleDescription(text);
}

} // namespace ledra
