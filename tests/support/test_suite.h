#pragma once

#include <QObject>
#include <QRegularExpression>
#include <QTest>

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace ledra::test {

/// What every suite shares: a warning of Qt fails the test in which it comes.
class Suite : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // NOLINTNEXTLINE(readability-convert-member-functions-to-static)
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
};

using SuiteMaker = std::function<std::unique_ptr<Suite>()>;

/// The suites of this executable by name.
std::map<std::string, SuiteMaker>& suites();

/// Put one of these, named after the file, at the end of each *_test.cpp.
template <class T>
struct RegisterSuite
{
    explicit RegisterSuite(const char* name)
    {
        suites()[name] = [] { return std::make_unique<T>(); };
    }
};

/// Runs the suite that the first argument names; further arguments go to Qt Test.
int runSuite(int argc, char** argv);

} // namespace ledra::test
