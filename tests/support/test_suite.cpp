#include "support/test_suite.h"

#include <cstdio>

namespace ledra::test {

std::map<std::string, SuiteMaker>& suites()
{
    static std::map<std::string, SuiteMaker> all;
    return all;
}

int runSuite(int argc, char** argv)
{
    const auto suite = argc > 1 ? suites().find(argv[1]) : suites().end();
    if (suite == suites().end()) {
        std::fprintf(stderr, "no such suite: %s\n", argc > 1 ? argv[1] : "(none named)");
        return 2;
    }
    argv[1] = argv[0];
    return QTest::qExec(suite->second().get(), argc - 1, argv + 1);
}

} // namespace ledra::test
