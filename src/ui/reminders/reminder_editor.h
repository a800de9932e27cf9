#pragma once

#include "ui/look/day_line.h"
#include "ui/reminders/decimal_field.h"
#include "ui/window_parts.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

class QFormLayout;
class QGridLayout;

namespace ledra {

class FieldGuard;
class VariableTextEdit;

/// What a reminder says: its stage, its days, interest and fee, and the letter. Changes are written while
/// somebody types, each with its way back, and shown when they come from elsewhere.
class ReminderEditor : public QWidget
{
    Q_OBJECT

public:
    explicit ReminderEditor(const WindowParts& parts, QWidget* parent = nullptr);

    /// Shows a reminder; null for none.
    void setReminder(const ReminderPtr& reminder);
    const ReminderPtr& reminder() const { return reminder_; }

    /// Writes what is still to be written.
    void flush();

Q_SIGNALS:
    void changed(); ///< the letter is to be shown anew

protected:
    void hideEvent(QHideEvent* event) override;

private:
    using Change = std::function<void(Reminder&)>;

    void setUpFields();
    void layOut();
    QFormLayout* makeForm();
    void connectFields();

    /// @param field tells changes of one field, of which the last one counts, from those of others
    void change(const QObject* field, EditKind kind, Change change);
    void changeTerm(const QObject* field, EditKind kind, const Change& change);
    void changeText(EditKind kind);
    void resetText();
    void follow();
    void showFields();
    void showRemarks();
    void showStages(std::int64_t stage);
    InvoicePtr invoice() const;
    const Profile& profile() const { return **parts_.app.profileManager().activeProfile(); }
    int paymentDays() const { return parts_.app.settings().number("paymentDeadlineDays"); }

    const WindowParts& parts_;
    QUuid id_;
    ReminderPtr reminder_; ///< null for none, or when it has been deleted
    Observation observation_;

    QLabel* headline_;
    QLabel* about_;
    QComboBox* stage_;
    DayLine* date_;
    QLabel* deadline_;
    DecimalField* interest_;
    QLabel* interestAmount_;
    DecimalField* fee_;
    QLabel* sum_;
    QPushButton* reset_;
    VariableTextEdit* text_;
    FieldGuard* guard_;

    // What has been typed and is not written yet.
    Change pending_;
    const QObject* pendingField_ = nullptr;
    EditKind pendingKind_ = EditKind::single;
    int run_ = 0; ///< of typing; a pause ends it
    bool isWriting_ = false;
    QTimer pause_;
    QTimer runPause_;
};

} // namespace ledra
