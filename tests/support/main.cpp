#include "support/test_suite.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return ledra::test::runSuite(argc, argv);
}
