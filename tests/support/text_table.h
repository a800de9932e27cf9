#pragma once

#include <QString>
#include <QTest>

#include <initializer_list>

namespace ledra::test {

/// Fills the data of a test from UTF-8 texts, one column each; the first text of a row is its name as well.
/// nullptr stands for a null text.
inline void textTable(std::initializer_list<const char*> columns,
                      std::initializer_list<std::initializer_list<const char*>> rows)
{
    for (const char* column : columns)
        QTest::addColumn<QString>(column);
    for (const std::initializer_list<const char*>& row : rows) {
        QTestData& data = QTest::newRow(*row.begin());
        for (const char* text : row)
            data << QString::fromUtf8(text);
    }
}

/// A text of the current row.
inline QString cell(const char* column)
{
    return *static_cast<const QString*>(QTest::qData(column, qMetaTypeId<QString>()));
}

} // namespace ledra::test
