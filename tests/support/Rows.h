// Tables of test data, a line for each row.
#pragma once

#include <QByteArray>
#include <QString>
#include <QTest>

/// The columns of the test's table: `columns<QString, int>("text", "count")`.
template <class... Types, class... Names> void columns(const Names&... names)
{
    (QTest::addColumn<Types>(names), ...);
}

template <class Value> const Value& cell(const Value& value)
{
    return value;
}

inline QString cell(const char* text)
{
    return QString::fromUtf8(text);
}

/// One row of them: its name, then a value for each column. Literals are texts.
template <class... Values> void row(const QByteArray& name, const Values&... values)
{
    (QTest::newRow(name) << ... << cell(values));
}
