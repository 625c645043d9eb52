#pragma once

#include <QTest>

namespace quillmark::test {

/// How many milliseconds a test waits for what must come: a busy machine may take its time.
inline constexpr int Patience = 120'000;

} // namespace quillmark::test

// Qt's own limit of five seconds is too short for that.
#undef QTRY_VERIFY
#undef QTRY_COMPARE
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, quillmark::test::Patience)
#define QTRY_COMPARE(actual, expected)                                                             \
    QTRY_COMPARE_WITH_TIMEOUT(actual, expected, quillmark::test::Patience)
