#include "ui/assistant/first_start_assistant.h"

#include "ui/main_window.h"

#include <QMessageBox>

namespace ledra {

namespace {

/// The field of a page to which Tab comes first; null where it has none.
QWidget* firstField(QWidget& page)
{
    for (QWidget* each = page.nextInFocusChain(); each != &page; each = each->nextInFocusChain()) {
        const bool takesTab = (each->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (takesTab && page.isAncestorOf(each) && each->isVisibleTo(&page) && each->isEnabled())
            return each;
    }
    return nullptr;
}

/// The field of a page in which something was typed that could not be taken, if nobody has asked before.
QWidget* takeRefused(const QWidget& page)
{
    FieldForm* form = page.findChild<FieldForm*>();
    return form ? form->takeRefused() : nullptr;
}

} // namespace

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
    if (FieldForm* form = pages_->currentWidget()->findChild<FieldForm*>())
        form->forgetRefused();
    QWidget* first = agreement_ && number == 0 ? agreement_ : firstField(*pages_->currentWidget());
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
    if (QWidget* refused = takeRefused(*pages_->currentWidget())) {
        refused->setFocus(Qt::OtherFocusReason); // where it is told why; going on is the next step
        return;
    }
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
