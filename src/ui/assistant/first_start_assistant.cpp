#include "ui/assistant/first_start_assistant.h"

#include "ui/commands/help_commands.h"
#include "ui/look/status_colors.h"
#include "ui/main_window.h"

#include <QMessageBox>
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
    QPalette ink;
    ink.setColor(QPalette::WindowText, warningLook().ink());
    problem_->setPalette(ink);
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

void FirstStartAssistant::showStep(int number)
{
    const Step& step = steps_[static_cast<std::size_t>(number)];
    title_->setText(step.title);
    text_->setText(step.text);
    problem_->hide();
    pages_->setCurrentIndex(number);
    pages_->currentWidget()->setAccessibleName(step.title);
    draft_.beginStep();
    showButtons();
    QWidget* first = pages_->currentWidget()->findChild<QLineEdit*>();
    if (agreement_ && number == 0)
        first = agreement_;
    if (first)
        first->setFocus(Qt::OtherFocusReason);
}

void FirstStartAssistant::showButtons()
{
    const int number = pages_->currentIndex();
    position_->setText(tr("Step %1 of %2").arg(number + 1).arg(pages_->count()));
    back_->setEnabled(number > 0);
    continue_->setText(!isLast() ? tr("Continue") : makesDraft_ ? tr("Create First Invoice") : tr("Finish"));
    continue_->setEnabled(!agreement_ || number > 0 || agreement_->isChecked());
}

bool FirstStartAssistant::succeeded(const JobResult<void>& done)
{
    problem_->setText(done ? QString() : done.error().text);
    problem_->setHidden(done.has_value());
    return done.has_value();
}

bool FirstStartAssistant::takeTerms()
{
    const bool isAsked = agreement_ && pages_->currentIndex() == 0;
    return !isAsked || succeeded(acceptTerms(parts_.app));
}

void FirstStartAssistant::continueOn()
{
    if (QWidget* field = focusWidget())
        field->clearFocus(); // what is being typed there ends
    if (!takeTerms())
        return;
    if (isLast())
        finish();
    else
        showStep(pages_->currentIndex() + 1);
}

void FirstStartAssistant::skip()
{
    draft_.skipStep();
    if (isLast())
        finish();
    else
        showStep(pages_->currentIndex() + 1);
}

bool FirstStartAssistant::keepAnswers()
{
    return succeeded(keepFirstStart(parts_.app, draft_.before(), draft_.answers()));
}

void FirstStartAssistant::finish()
{
    if (!keepAnswers())
        return;
    if (makesDraft_) {
        const JobResult<InvoicePtr> draft = createExampleDraft(parts_.app);
        if (!draft) {
            (void)succeeded(std::unexpected(draft.error()));
            return;
        }
        leave();
        Q_EMIT made((**draft)->id);
        return;
    }
    leave();
}

/// The questions are not put again.
void FirstStartAssistant::leave()
{
    (void)parts_.succeeded(noteFirstStart(parts_.app));
    QDialog::accept();
}

void FirstStartAssistant::reject()
{
    if (QWidget* field = focusWidget())
        field->clearFocus();
    if (!draft_.holdsAnything()) {
        leave();
        return;
    }
    QMessageBox question(QMessageBox::Question, windowTitle(), tr("Keep what you have entered?"),
                         QMessageBox::NoButton, this);
    question.setInformativeText(tr("It goes into your profile. You can go on in the settings."));
    QPushButton* keep = question.addButton(tr("Keep"), QMessageBox::AcceptRole);
    const QPushButton* discard = question.addButton(tr("Discard"), QMessageBox::DestructiveRole);
    question.addButton(QMessageBox::Cancel);
    question.setDefaultButton(keep);
    question.exec();
    const bool isKept = question.clickedButton() == keep && keepAnswers();
    if (isKept || question.clickedButton() == discard)
        leave();
}

void openFirstStart(MainWindow& window)
{
    auto* assistant = new FirstStartAssistant(window.parts(), &window); // deletes itself
    QObject::connect(assistant, &FirstStartAssistant::made, &window, [&window](const QUuid& id) {
        window.reveal(id);
        window.openEditor();
    });
    assistant->open();
}

void offerFirstStart(MainWindow& window)
{
    if (isFirstStart(window.parts().app))
        openFirstStart(window);
}

} // namespace ledra
