#pragma once

#include <QString>

namespace ledra {

class MainWindow;

/// A page of the program's own as Markdown, in the language of the window.
QString helpPage(const char* name);

void writeMessage(MainWindow& window);
void reportProblem(MainWindow& window);
void showTerms(MainWindow& window);
void showPrivacy(MainWindow& window);
void showAbout(MainWindow& window);
void checkForUpdates(MainWindow& window);

} // namespace ledra
