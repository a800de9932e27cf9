#pragma once

#include "ui/assistant/first_start_steps.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

namespace ledra {

class MainWindow;

/// Leads somebody who has just come to Ledra to a first invoice: the terms, the sender, the bank, the taxes
/// and the look of documents. Each step can be skipped, and all of it left for later. Answers are written
/// when the last step is done, all together; what is left before that leaves nothing behind but the agreement
/// to the terms.
class FirstStartAssistant : public QDialog
{
    Q_OBJECT

public:
    FirstStartAssistant(const WindowParts& parts, QWidget* parent);

    /// Closes it, after a question if something was said that would be lost.
    void reject() override;

Q_SIGNALS:
    void made(const QUuid& id); ///< the first draft

private:
    struct Step
    {
        QString title;
        QString text;
    };

    void addTerms();
    void addStep(const Step& step, QWidget* content);
    QWidget* makeButtons();
    void showStep(int number);
    void showButtons();
    void continueOn();
    void skip();
    bool takeTerms();
    void finish();
    bool keepAnswers();
    void leave();
    bool isLast() const { return pages_->currentIndex() == pages_->count() - 1; }
    bool succeeded(const JobResult<void>& done);

    const WindowParts& parts_;
    FirstStartDraft draft_;
    bool makesDraft_; ///< there is no record yet
    std::vector<Step> steps_;
    QCheckBox* agreement_ = nullptr; ///< null when the terms are agreed to already
    QLabel* title_;
    QLabel* text_;
    QStackedWidget* pages_;
    QLabel* problem_;
    QLabel* position_;
    QPushButton* later_;
    QPushButton* back_;
    QPushButton* skip_;
    QPushButton* continue_;
};

/// Opens the assistant; the draft that comes of it is opened in the editor.
void openFirstStart(MainWindow& window);

/// The same where nobody has worked with Ledra yet.
void offerFirstStart(MainWindow& window);

} // namespace ledra
