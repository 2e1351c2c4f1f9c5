// How GoogleTest prints Qt text in failure messages: readable UTF-8 instead
// of raw bytes. Force-included into every test program (tests/CMakeLists.txt)
// so that each translation unit sees the same printer.
#pragma once

#include <QString>
#include <ostream>

inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }
