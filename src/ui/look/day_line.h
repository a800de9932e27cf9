#pragma once

#include <QDate>
#include <QLineEdit>

#include <optional>

namespace ledra {

/// A line for a day, which is typed as a whole in any usual way, picked from a calendar, or stepped from the
/// keyboard. QDateEdit takes a date apart into sections, in which typing on gives other days than meant.
class DayLine : public QLineEdit
{
    Q_OBJECT

public:
    explicit DayLine(QWidget* parent = nullptr);

    /// The day that holds.
    QDate day() const { return day_; }

    /// Shows a day. What is being typed, or could not be read, is left alone.
    void setDay(QDate day);

    /// As the line shows days.
    QString textOf(QDate day) const;

    /// Gives up what was typed.
    void forget();

Q_SIGNALS:
    void chosen(QDate day);
    void refused(const QString& problem); ///< what was typed is no day, and stays

protected:
    void keyPressEvent(QKeyEvent* event) override; ///< Up and Down for the day after and before

private:
    void setProblem(const QString& problem);
    void take(QDate day);
    void finish();
    void openCalendar();

    QDate day_;
    QString problem_;
    QString usualToolTip_; ///< while a problem stands in its place
};

} // namespace ledra
