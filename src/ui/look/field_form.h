#pragma once

#include "model/text_enum.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSet>
#include <QSpinBox>

#include <functional>
#include <utility>
#include <vector>

namespace ledra {

/// How a field comes to its value, and where it goes to.
template <class T>
struct Access
{
    std::function<T()> read;
    std::function<void(const T&)> write;
};

/// An entry of a list: what it is called and what is stored.
struct FieldChoice
{
    QString text;
    QString value;
};

template <class E>
QString rawText(E value)
{
    const std::string_view raw = rawValue(value);
    return QString::fromUtf8(raw.data(), static_cast<qsizetype>(raw.size()));
}

/// The cases of an enumeration; their texts are translated in a context.
template <TextEnum E>
std::vector<FieldChoice> choicesOf(const char* context)
{
    std::vector<FieldChoice> choices;
    for (const EnumText<E>& row : enumTexts<E>) {
        const QByteArray text = displayText(row.value).toUtf8();
        choices.push_back({QCoreApplication::translate(context, text.constData()), rawText(row.value)});
    }
    return choices;
}

/// A form whose fields show values that others change as well: what is typed is written at once, refresh()
/// shows what holds. Every field has the name of its label, for readers and for the keyboard.
class FieldForm : public QWidget
{
    Q_OBJECT

public:
    explicit FieldForm(QWidget* parent = nullptr);

    /// What is wrong with a text, to stand under its field; empty when nothing is.
    using Check = std::function<QString(const QString&)>;

    QLineEdit* addLine(const QString& label, const Access<QString>& access, const Check& check = {});
    QPlainTextEdit* addParagraph(const QString& label, const Access<QString>& access, int lines);

    /// What stands behind a number, asked anew whenever the form shows what holds.
    using Unit = std::function<QString()>;

    /// What is no number is told under the field and not written.
    QLineEdit* addNumber(const QString& label, const Access<double>& access, int leastDecimals,
                         const Unit& unit);

    /// A number that is 0 until it is switched on; shown only then.
    QLineEdit* addSwitchedNumber(const QString& label, const Access<double>& access, const Unit& unit);

    QSpinBox* addCount(const QString& label, const Access<int>& access, int least, int most);
    QCheckBox* addToggle(const QString& text, const Access<bool>& access);
    QComboBox* addChoice(const QString& label, const std::vector<FieldChoice>& choices,
                         const Access<QString>& access, bool isSearchable = false);

    /// A field of another kind under a label.
    void addField(const QString& label, QWidget* field);

    /// The same with a place for what say() and refuse() tell.
    void addJudged(const QString& label, QWidget* field);

    /// Tells under a field what is wrong with it; nothing where the text is empty.
    void say(QWidget* field, const QString& problem);

    /// Tells why what was typed was not taken; it stands there until something else is said of the field.
    void refuse(QWidget* field, const QString& problem);

    bool isRefused(QWidget* field) const { return refusals_.contains(field); }

    /// The field in which something was refused since this was asked; null for none.
    QWidget* takeRefused() { return std::exchange(lastRefused_, nullptr); }

    /// What was refused is of no interest any more: the form shows something else.
    void forgetRefused();

    void addWide(QWidget* widget) { form_->addRow(widget); }
    QLabel* addHint(const QString& text);

    /// To be run by refresh() as well.
    void follow(std::function<void()> refresh);
    void refresh() const;

private:
    QLabel* addLabel(const QString& label, QWidget* field);
    void addProblem(QWidget* field, QBoxLayout& column);
    QLineEdit* makeNumber(const QString& label, const Access<double>& access, int leastDecimals,
                          const Unit& unit, QWidget*& row);
    void makeSearchable(QComboBox* field, const Access<QString>& access);

    QFormLayout* form_;
    std::vector<std::function<void()>> refreshers_;
    QHash<QWidget*, QLabel*> problems_; ///< where the problem of a field stands
    QSet<QWidget*> refusals_;           ///< of which it is told why what was typed was not taken
    QWidget* lastRefused_ = nullptr;
};

} // namespace ledra
