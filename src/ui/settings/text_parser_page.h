#pragma once

#include "app/text_extraction.h"

#include <QWidget>

#include <memory>

namespace ledra {

class SettingsWindow;

/// The model server on this computer that turns texts into invoices.
class TextParserPage : public QWidget
{
    Q_OBJECT

public:
    explicit TextParserPage(SettingsWindow& window);
    ~TextParserPage() override;

private:
    std::unique_ptr<TextParser> parser_; ///< while it is tested
};

} // namespace ledra
