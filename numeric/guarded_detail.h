// Internal pieces shared by guarded.cpp and rounding.cpp; not part of the
// public interface (include numeric/guarded.h instead).
#pragma once

#include "numeric/value.h"

#include <QString>

namespace guarded_detail {

// The trimmed text of a value (blanks U+0020 only).
QString 修剪文本(const 数值& x);

// The value as a decimal / as a double, a blank text reading as 0 (as it
// does in Hvt数转数). Never report.
bool 作十进制(const 数值& x, Decimal96& out);
bool 作双精度(const 数值& x, double& out);

// Significant digits of a text by the walk of 判断数的有效字符长度.
int 有效位数(const QString& s);

// 1-based place of the first E/e, 0 if none.
int E位置(const QString& s);

// Hvt数转数 without its side effects: the value it gives, whether reaching
// it was a fall to double, and false when the value is not a number.
enum class 转换结果 { 十进制, 落双精度, 失败 };
转换结果 数转数核心(const 数值& x, 数值& out);

}  // namespace guarded_detail
