#include "ui/settings/text_parser_page.h"

#include "ui/look/section.h"
#include "ui/settings/settings_access.h"
#include "ui/text/parser_texts.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace ledra {

namespace {

/// Written only when it is right; until then the line under the field says what is wrong.
Access<QString> whenRight(SettingsWindow& window, const char* key, const FieldForm::Check& problem)
{
    const Access<QString> access = textSetting(window, key);
    return {access.read, [access, problem](const QString& text) {
                if (problem(text).isEmpty())
                    access.write(text);
            }};
}

QString addressProblem(const QString& text)
{
    const std::expected<QUrl, QString> address = localEndpoint(text);
    return address ? QString() : TextParserPage::tr("This address %1").arg(parserText(address.error()));
}

} // namespace

TextParserPage::TextParserPage(SettingsWindow& window) : QWidget(&window)
{
    auto* page = new QVBoxLayout(this);
    auto* section = new Section(tr("Model on this computer"), false, this);
    page->addWidget(section);
    auto* form = new FieldForm(section);
    section->content()->addWidget(form);
    form->addWide(new QLabel(tr("A model server on this computer turns texts into invoices. "
                                "Nothing leaves the computer."),
                             form));
    QLineEdit* address =
        form->addLine(tr("Address"), whenRight(window, "textParserEndpoint", addressProblem), addressProblem);
    form->addLine(tr("Model"), textSetting(window, "textParserModel"))
        ->setPlaceholderText(tr("The first that the server has"));
    constexpr int longest = 3600;
    form->addCount(tr("Time limit"), numberSetting(window, "textParserTimeout"), 1, longest)
        ->setSuffix(tr(" seconds"));
    auto* test = new QPushButton(tr("Test"), form);
    test->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    form->addField(QString(), test);
    test->setAccessibleName(tr("Test"));
    QLabel* answer = form->addHint(QString());
    answer->setTextFormat(Qt::PlainText);
    answer->setObjectName(QStringLiteral("text-parser-answer"));
    connect(test, &QPushButton::clicked, this, [this, &window, test, answer] {
        test->setEnabled(false);
        answer->setText(tr("Asking the server…"));
        parser_ =
            std::make_unique<TextParser>(textParserSetting(window.app().settings()), window.app().ids());
        parser_->availability([test, answer](const TextParserAvailability& found) {
            test->setEnabled(true);
            answer->setText(found.unavailable ? parserText(*found.unavailable)
                                              : tr("The model is available."));
        });
    });
    connect(address, &QLineEdit::textEdited, answer, &QLabel::clear);
    page->addStretch();
}

TextParserPage::~TextParserPage() = default;

} // namespace ledra
