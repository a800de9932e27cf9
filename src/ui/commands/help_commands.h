#pragma once

namespace ledra {

class MainWindow;

void writeMessage(MainWindow& window);
void reportProblem(MainWindow& window);
void showTerms(MainWindow& window);
void showPrivacy(MainWindow& window);
void showAbout(MainWindow& window);
void checkForUpdates(MainWindow& window);

} // namespace ledra
