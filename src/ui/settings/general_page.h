#pragma once

#include <QWidget>

namespace ledra {

class FieldForm;
class SettingsWindow;

/// Appearance, export format, and what is kept about the use of the program.
class GeneralPage : public QWidget
{
    Q_OBJECT

public:
    explicit GeneralPage(SettingsWindow& window);

private:
    void addUsage(SettingsWindow& window, FieldForm& form);
};

} // namespace ledra
