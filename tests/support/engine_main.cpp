#include "render/qt_web_engine.h"
#include "support/test_suite.h"

#include <QApplication>

int main(int argc, char** argv)
{
    ledra::QtWebEngine::prepare(false);
    int engineArgc = 1; // the engine reads the arguments of the program
    const QApplication application(engineArgc, argv);
    return ledra::test::runSuite(argc, argv);
}
