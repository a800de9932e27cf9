#include "ui/editor/editor_fields.h"

namespace ledra {

namespace {

/// The moment of a new day. A day that stays keeps its time.
Timestamp movedTo(QDate day, std::optional<Timestamp> before)
{
    return before && before->localDate() == day ? *before : noonOf(day);
}

} // namespace

Timestamp noonOf(QDate day)
{
    return Timestamp::fromDateTime(QDateTime(day, QTime(12, 0)));
}

DayField::DayField(RecordEditing& editing, Read read, Write write, QWidget* parent)
    : DayLine(parent), editing_(editing), read_(std::move(read)), write_(std::move(write))
{
    connect(this, &DayLine::chosen, this, [this](QDate day) {
        editing_.change([&](Invoice& invoice) { write_(invoice, movedTo(day, read_(invoice))); },
                        EditKind::typing);
    });
    connect(this, &DayLine::refused, this,
            [this](const QString& problem) { editing_.parts().messages.note(problem); });
    connect(&editing, &RecordEditing::recordChanged, this, &DayLine::forget);
    connect(&editing, &RecordEditing::changed, this, &DayField::refresh);
    refresh();
}

DayField::DayField(RecordEditing& editing, Timestamp Invoice::* member, QWidget* parent)
    : DayField(
          editing, [member](const Invoice& invoice) { return invoice.*member; },
          [member](Invoice& invoice, Timestamp moment) { invoice.*member = moment; }, parent)
{}

void DayField::refresh()
{
    const std::optional<Timestamp> moment = editing_.record() ? read_(editing_.invoice()) : std::nullopt;
    if (moment)
        setDay(moment->localDate());
}

} // namespace ledra
