#include "ui/editor/record_sections.h"

#include "app/reader_language.h"
#include "model/amount_text.h"
#include "model/displayed_number.h"
#include "model/new_invoices.h"
#include "model/number_format_checks.h"
#include "ui/editor/recipient_section.h"
#include "ui/look/color_keeper.h"
#include "ui/look/icons.h"
#include "ui/look/status_colors.h"
#include "ui/number_format/number_format_edit.h"

#include <QCoreApplication>
#include <QLocale>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>

namespace ledra {

namespace {

QString dayText(RecordEditing& editing, QDate day)
{
    return editing.locale().toString(day, QLocale::LongFormat);
}

template <TextEnum E>
E fromRawText(const QString& text, E otherwise)
{
    return enumFromRawValue<E>(text.toStdString()).value_or(otherwise);
}

} // namespace

DatesSection::DatesSection(RecordEditing& editing, QWidget* parent) : Section(tr("Dates"), false, parent)
{
    QFormLayout* form = newForm();
    content()->addLayout(form);
    addRow(form, tr("Date"), new DayField(editing, &Invoice::date, this));
    addServicePeriod(editing, form);
    constexpr int mostDays = 3650;
    auto* days = new CountField(editing, &Invoice::daysToPay, 0, mostDays, this);
    addRow(form, tr("Days to pay"), days);
    auto* due = new QLabel(this);
    due->setForegroundRole(QPalette::PlaceholderText);
    form->addRow(QString(), due);
    connect(&editing, &RecordEditing::changed, due, [&editing, due] {
        if (editing.record())
            due->setText(tr("Due on %1").arg(dayText(editing, editing.invoice().dueDay())));
    });
}

void DatesSection::addServicePeriod(RecordEditing& editing, QFormLayout* form)
{
    addRow(form, tr("Service date"), new DayField(editing, &Invoice::serviceDateStart, this));
    auto* isPeriod = new QCheckBox(tr("Service period until"), this);
    auto* end = new DayField(
        editing, [](const Invoice& invoice) { return invoice.serviceDateEnd; },
        [](Invoice& invoice, Timestamp moment) { invoice.serviceDateEnd = moment; }, this);
    end->setAccessibleName(tr("End of the service period"));
    form->addRow(isPeriod, end);
    auto* problem = new QLabel(this);
    problem->setWordWrap(true);
    keepColors(*problem, warningLook());
    form->addRow(QString(), problem);
    connect(isPeriod, &QCheckBox::clicked, this, [&editing](bool isOn) {
        editing.change(
            [&](Invoice& invoice) {
                invoice.serviceDateEnd = isOn ? std::optional(invoice.serviceDateStart) : std::nullopt;
            },
            EditKind::single);
    });
    connect(&editing, &RecordEditing::changed, end, [&editing, isPeriod, end, problem] {
        if (!editing.record())
            return;
        const std::optional<Timestamp>& last = editing.invoice().serviceDateEnd;
        const bool isBackwards = last && last->localDate() < editing.invoice().serviceDateStart.localDate();
        isPeriod->setChecked(last.has_value());
        end->setVisible(last.has_value());
        problem->setText(isBackwards ? tr("The service period ends before it begins") : QString());
        problem->setVisible(isBackwards);
        end->setAccessibleDescription(problem->text());
    });
}

NumberSection::NumberSection(RecordEditing& editing, QWidget* parent) : Section(tr("Number"), true, parent)
{
    QFormLayout* form = newForm();
    content()->addLayout(form);
    constexpr int most = 99'999'999;
    addRow(form, tr("Number"), new CountField(editing, &Invoice::number, 0, most, this));
    auto* format = new NumberFormatEdit(this);
    addRow(form, tr("Format"), format);
    format->line().setAccessibleName(tr("Format"));
    connect(format, &NumberFormatEdit::edited, this, [&editing, format](bool isTyping) {
        const QString text = format->format();
        editing.change(
            [&](Invoice& invoice) {
                invoice.numberFormat = text.isEmpty() ? std::nullopt : std::optional(text);
            },
            isTyping ? EditKind::typing : EditKind::single);
    });
    addRow(form, tr("Free text"), new TextField(editing, &Invoice::numberVariable, this));
    connect(&editing, &RecordEditing::changed, this, [&editing, format] {
        if (!editing.record())
            return;
        const Invoice& invoice = editing.invoice();
        const QString text = invoice.numberFormat.value_or(QString());
        format->setFormat(text, invoice.id);
        format->line().setPlaceholderText(tr("As in the profile"));
        const QString unknown = unknownVariable(text);
        format->setProblem(unknown.isEmpty()
                               ? QString()
                               : tr("“%1” is no variable and is printed as it stands").arg(unknown));
        format->setSample(tr("Printed as %1").arg(displayedNumber(invoice, editing.profile())));
    });
}

void toggleEmphasis(QPlainTextEdit& text, const QString& mark)
{
    QTextCursor cursor = text.textCursor();
    const QString all = text.toPlainText();
    int begin = cursor.selectionStart();
    int end = cursor.selectionEnd();
    const auto length = static_cast<int>(mark.size());
    const bool isMarked =
        QStringView(all).left(begin).endsWith(mark) && QStringView(all).mid(end).startsWith(mark);
    cursor.beginEditBlock();
    if (isMarked) {
        cursor.setPosition(begin - length);
        cursor.setPosition(end + length, QTextCursor::KeepAnchor);
        cursor.insertText(all.mid(begin, end - begin));
        begin -= length;
        end -= length;
    } else {
        cursor.setPosition(begin);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        cursor.insertText(mark + all.mid(begin, end - begin) + mark);
        begin += length;
        end += length;
    }
    cursor.endEditBlock();
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    text.setTextCursor(cursor);
}

NoteSection::NoteSection(RecordEditing& editing, QWidget* parent) : Section(tr("Note"), false, parent)
{
    auto* note = new ParagraphField(editing, &Invoice::note, 3, this);
    note->setAccessibleName(tr("Note"));
    note->setPlaceholderText(tr("A few words below the items"));
    struct Emphasis
    {
        const char* icon;
        QString name;
        QString mark;
        QKeySequence shortcut;
    };
    const Emphasis kinds[] = {{"bold", tr("Bold"), QStringLiteral("**"), QKeySequence::Bold},
                              {"italic", tr("Italic"), QStringLiteral("*"), QKeySequence::Italic}};
    for (const Emphasis& kind : kinds) {
        auto* button = new QToolButton(this);
        button->setIcon(lineIcon(kind.icon));
        button->setToolTip(
            QStringLiteral("%1 (%2)").arg(kind.name, kind.shortcut.toString(QKeySequence::NativeText)));
        button->setAccessibleName(kind.name);
        button->setFocusPolicy(Qt::NoFocus); // the words stay chosen
        const auto run = [note, mark = kind.mark] { toggleEmphasis(*note, mark); };
        connect(button, &QToolButton::clicked, note, run);
        connect(new QShortcut(kind.shortcut, note, nullptr, nullptr, Qt::WidgetShortcut),
                &QShortcut::activated, note, run);
        titleRow()->addWidget(button);
    }
    content()->addWidget(note);
    QFormLayout* form = newForm();
    content()->addLayout(form);
    addRow(form, tr("Reference"), new OptionalTextField(editing, &Invoice::reference, this));
}

TermsSection::TermsSection(RecordEditing& editing, QWidget* parent) : Section(tr("Terms"), false, parent)
{
    QFormLayout* form = newForm();
    content()->addLayout(form);
    addRow(form, tr("VAT exemption"),
           new ChoiceField(
               editing, choicesOf<VATExemptionReason>("Choices"),
               [](const Invoice& invoice) { return rawText(invoice.vatExemptionReason); },
               [](Invoice& invoice, const QString& text) {
                   invoice.vatExemptionReason = fromRawText(text, VATExemptionReason::none);
               },
               false, this));
    std::vector<ChoiceField::Choice> currencies;
    QStringList codes;
    for (const CountryFacts& facts : countryTable())
        codes +=
            QString::fromLatin1(facts.currencyCode.data(), static_cast<qsizetype>(facts.currencyCode.size()));
    codes.removeAll(QString());
    codes.removeDuplicates();
    codes.sort();
    for (const QString& code : std::as_const(codes))
        currencies.push_back({code, code});
    addRow(form, tr("Currency"),
           new ChoiceField(
               editing, currencies, [](const Invoice& invoice) { return invoice.currency.code; },
               [](Invoice& invoice, const QString& code) { invoice.currency.code = code; }, true, this));
    std::vector<ChoiceField::Choice> languages = choicesOf<Language>("Choices");
    languages.insert(languages.begin(), {tr("As in the profile"), QString()});
    addRow(
        form, tr("Language"),
        new ChoiceField(
            editing, languages,
            [](const Invoice& invoice) { return invoice.language ? rawText(*invoice.language) : QString(); },
            [](Invoice& invoice, const QString& text) {
                invoice.language = enumFromRawValue<Language>(text.toStdString());
            },
            false, this));
    addRow(form, tr("Marginal note"), new ParagraphField(editing, &Invoice::marginalNote, 2, this));
}

SenderSection::SenderSection(RecordEditing& editing, QWidget* parent) : Section(tr("Sender"), true, parent)
{
    struct Row
    {
        const char* label;
        QString Invoice::* member;
    };
    constexpr std::array rows = {
        Row{QT_TR_NOOP("Business"), &Invoice::senderBusinessName},
        Row{QT_TR_NOOP("Name"), &Invoice::senderName},
        Row{QT_TR_NOOP("Address"), &Invoice::senderAddressLineOne},
        Row{QT_TR_NOOP("Address 2"), &Invoice::senderAddressLineTwo},
        Row{QT_TR_NOOP("Postcode"), &Invoice::senderAddressPostcode},
        Row{QT_TR_NOOP("City"), &Invoice::senderAddressCity},
        Row{QT_TR_NOOP("State"), &Invoice::senderAddressState},
        Row{QT_TR_NOOP("E-mail"), &Invoice::senderEmail},
        Row{QT_TR_NOOP("Phone"), &Invoice::senderPhone},
        Row{QT_TR_NOOP("Website"), &Invoice::senderWeb},
        Row{QT_TR_NOOP("Additional"), &Invoice::senderAdditional},
        Row{QT_TR_NOOP("IBAN"), &Invoice::senderIban},
        Row{QT_TR_NOOP("BIC"), &Invoice::senderBic},
        Row{QT_TR_NOOP("Tax number"), &Invoice::senderTaxNumber},
        Row{QT_TR_NOOP("VAT ID"), &Invoice::senderVatNumber},
        Row{QT_TR_NOOP("Further numbers"), &Invoice::senderAdditionalNumbers},
    };
    QFormLayout* form = newForm();
    content()->addLayout(form);
    for (const Row& row : rows)
        addRow(form, tr(row.label), new TextField(editing, row.member, this));
    addRow(form, tr("Country"),
           new ChoiceField(
               editing, RecipientSection::countries(),
               [](const Invoice& invoice) { return invoice.senderAddressCountry.code; },
               [](Invoice& invoice, const QString& code) { invoice.senderAddressCountry.code = code; }, true,
               this));
    auto* refresh = new QPushButton(tr("Take From Profile"), this);
    connect(refresh, &QPushButton::clicked, this, [&editing] {
        editing.change([&](Invoice& invoice) { takeSender(invoice, editing.profile()); }, EditKind::single);
    });
    content()->addWidget(refresh, 0, Qt::AlignLeft);
}

} // namespace ledra
