#include "ui/assistant/first_start_assistant.h"
#include "ui/commands/help_commands.h"
#include "ui/look/color_keeper.h"
#include "ui/look/status_colors.h"

#include <QScrollArea>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace ledra {

FirstStartAssistant::FirstStartAssistant(const WindowParts& parts, QWidget* parent)
    : QDialog(parent),
      parts_(parts),
      draft_(parts.app),
      makesDraft_(parts.app.invoiceManager().invoices().empty()),
      title_(new QLabel(this)),
      text_(new QLabel(this)),
      pages_(new QStackedWidget(this)),
      problem_(new QLabel(this))
{
    setWindowTitle(tr("Set Up Ledra"));
    setAttribute(Qt::WA_DeleteOnClose);
    QFont font = title_->font();
    constexpr double larger = 1.4;
    font.setPointSizeF(font.pointSizeF() * larger);
    font.setWeight(QFont::DemiBold);
    title_->setFont(font);
    text_->setWordWrap(true);
    text_->setForegroundRole(QPalette::PlaceholderText);
    keepColors(*problem_, warningLook());
    problem_->setWordWrap(true);
    problem_->setTextFormat(Qt::PlainText);
    problem_->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(28, 22, 28, 18);
    layout->setSpacing(10);
    layout->addWidget(title_);
    layout->addWidget(text_);
    layout->addSpacing(8);
    layout->addWidget(pages_, 1);
    layout->addWidget(problem_);
    if (!parts.app.settings().boolean("termsAccepted"))
        addTerms();
    for (const FirstStartStep& step : firstStartSteps())
        addStep({tr(step.title), tr(step.text)}, step.make({parts_, draft_}, pages_));
    layout->addWidget(makeButtons()); // Tab comes to them after the steps
    resize(760, 660);
    showStep(0);
}

void FirstStartAssistant::addTerms()
{
    auto* box = new QWidget(pages_);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    auto* terms = new QTextBrowser(box);
    terms->setMarkdown(helpPage("terms"));
    terms->setAccessibleName(tr("Terms of use"));
    terms->setOpenExternalLinks(true);
    agreement_ = new QCheckBox(tr("I agree to the terms of use"), box);
    column->addWidget(terms, 1);
    column->addWidget(agreement_);
    connect(agreement_, &QCheckBox::toggled, this, &FirstStartAssistant::showButtons);
    steps_.push_back({tr("Welcome to Ledra"),
                      tr("A few questions lead to your first invoice. Each of them can be skipped and "
                         "answered later in the settings.")});
    pages_->addWidget(box);
}

void FirstStartAssistant::addStep(const Step& step, QWidget* content)
{
    steps_.push_back(step);
    auto* scroll = new QScrollArea(pages_);
    auto* box = new QWidget;
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 6, 0);
    column->addWidget(content);
    column->addStretch();
    scroll->setWidget(box);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus); // its fields take the focus
    pages_->addWidget(scroll);
}

QWidget* FirstStartAssistant::makeButtons()
{
    auto* box = new QWidget(this);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 8, 0, 0);
    later_ = new QPushButton(tr("Set Up Later"), box);
    position_ = new QLabel(box);
    position_->setForegroundRole(QPalette::PlaceholderText);
    back_ = new QPushButton(tr("Back"), box);
    skip_ = new QPushButton(tr("Skip"), box);
    continue_ = new QPushButton(box);
    for (QPushButton* button : {later_, back_, skip_})
        button->setAutoDefault(false);
    continue_->setDefault(true);
    row->addWidget(later_);
    row->addSpacing(12);
    row->addWidget(position_);
    row->addStretch();
    row->addWidget(back_);
    row->addWidget(skip_);
    row->addWidget(continue_);
    connect(later_, &QPushButton::clicked, this, &FirstStartAssistant::reject);
    connect(back_, &QPushButton::clicked, this, [this] { showStep(pages_->currentIndex() - 1); });
    connect(skip_, &QPushButton::clicked, this, &FirstStartAssistant::skip);
    connect(continue_, &QPushButton::clicked, this, &FirstStartAssistant::continueOn);
    return box;
}

} // namespace ledra
