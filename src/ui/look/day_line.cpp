#include "ui/look/day_line.h"

#include "app/reader_language.h"
#include "model/amount_text.h"
#include "ui/look/icons.h"
#include "ui/look/status_colors.h"
#include "ui/look/typed_day.h"

#include <QAction>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QMenu>
#include <QWidgetAction>

namespace ledra {

DayLine::DayLine(QWidget* parent) : QLineEdit(parent)
{
    setLocale(documentLocale(readerLanguage())); // whose days begin with the day, as typed ones are read
    QAction* calendar = addAction(lineIcon("year"), TrailingPosition);
    calendar->setToolTip(tr("Calendar (F4)"));
    connect(calendar, &QAction::triggered, this, &DayLine::openCalendar);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
        setProblem({});
        if (const std::optional<QDate> day = dayTyped(text))
            take(*day);
    });
    connect(this, &QLineEdit::editingFinished, this, &DayLine::finish);
}

QString DayLine::textOf(QDate day) const
{
    QString format = locale().dateFormat(QLocale::ShortFormat);
    if (!format.contains(u"yyyy"))
        format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    return locale().toString(day, format);
}

void DayLine::setDay(QDate day)
{
    day_ = day;
    const std::optional<QDate> typed = dayTyped(text());
    if ((isModified() && (!typed || typed == day)) || text() == textOf(day))
        return;
    setText(textOf(day));
    setCursorPosition(hasFocus() ? static_cast<int>(text().size()) : 0);
}

void DayLine::forget()
{
    setProblem({});
    setModified(false);
}

void DayLine::setProblem(const QString& problem)
{
    if (problem == problem_)
        return;
    if (problem_.isEmpty())
        usualToolTip_ = toolTip();
    problem_ = problem;
    QPalette palette;
    if (!problem.isEmpty())
        palette.setColor(QPalette::Text, warningLook().ink());
    setPalette(palette);
    setToolTip(problem.isEmpty() ? usualToolTip_ : problem);
    setAccessibleDescription(problem);
}

void DayLine::take(QDate day)
{
    day_ = day;
    Q_EMIT chosen(day);
}

void DayLine::finish()
{
    if (!isModified() || !day_.isValid())
        return;
    const std::optional<QDate> day = dayTyped(text(), day_.year());
    if (!day && !text().trimmed().isEmpty()) {
        setProblem(tr("“%1” is not a date").arg(text()));
        Q_EMIT refused(problem_);
        return;
    }
    setModified(false);
    if (day)
        take(*day);
    setText(textOf(day_));
}

void DayLine::openCalendar()
{
    if (!day_.isValid())
        return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto* calendar = new QCalendarWidget(menu);
    calendar->setLocale(locale());
    calendar->setSelectedDate(day_);
    const auto pick = [this, menu](QDate day) {
        forget();
        take(day);
        setDay(day);
        menu->close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, pick);
    connect(calendar, &QCalendarWidget::activated, this, pick);
    auto* action = new QWidgetAction(menu);
    action->setDefaultWidget(calendar);
    menu->addAction(action);
    menu->popup(mapToGlobal(QPoint(0, height())));
    calendar->setFocus();
}

void DayLine::keyPressEvent(QKeyEvent* event)
{
    const bool isVertical = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (event->key() == Qt::Key_F4 ||
        (event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier)) {
        openCalendar();
    } else if (isVertical && event->modifiers() == Qt::NoModifier) {
        finish();
        if (!isModified() && day_.isValid()) {
            take(day_.addDays(event->key() == Qt::Key_Up ? 1 : -1));
            setDay(day_);
        }
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

} // namespace ledra
