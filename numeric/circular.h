// Circular functions in the 96-bit decimal, and the angle units.
//
// Angle units (计算状态.角度单位): 60 packed sexagesimal degrees, 100 decimal
// degrees (a right angle is 90), 3 radians, 400 grads (accepted by
// 度转弧度, offered by no screen).
//
// Packed degrees ("度分秒"): one number DDD.MMSSsss. The sign of the number
// is the sign of the angle; behind the point digits 1-2 are the minutes,
// 3-4 the whole seconds, the rest the decimals of a second; a missing digit
// counts as 0, so 45.5 is 45°50′ and 45.303 is 45°30′30″. Minutes and
// seconds run to 59 but the digits may hold up to 60 (a carry not yet done).
//
// Two families: the decimal one (数值 in, 数值 out, guarded, reporting into
// the collector) for the calculator, and the double one (double in, double
// out, never reporting, no QString on the way) for the geodesy.
#pragma once

#include "numeric/decimal.h"
#include "numeric/value.h"

#include <QString>

// ---- Constants ---------------------------------------------------------------
// Decimal texts of the true values rounded to nearest at 28 places
// (π = 3.14159265358979323846264338327950…, π/180 = 0.01745329251994329576923690768489…).
inline constexpr const char16_t* 二π文本 = u"6.2831853071795864769252867666";
inline constexpr const char16_t* π文本 = u"3.1415926535897932384626433833";
inline constexpr const char16_t* 三π除二文本 = u"4.7123889803846898576939650749";
inline constexpr const char16_t* π除二文本 = u"1.5707963267948966192313216916";
inline constexpr const char16_t* 每度弧度文本 = u"0.0174532925199432957692369077";  // π / 180

// The same as decimals (parsed once).
const Decimal96& 二π();
const Decimal96& π值();
const Decimal96& 三π除二();
const Decimal96& π除二();
const Decimal96& 每度弧度();

// The bound of the double family: beyond ±179769313486232 an angle is not
// converted (the conversions give 0.0 or x itself, as told at each).
inline constexpr double 角度双精度界限 = 179769313486232.0;

// ---- Decimal circular functions (argument in radians) ------------------------

// Sine by its Taylor series over decimals, after reduction to [0, 2π) and to
// the first quadrant. m (the reduced argument) equal to 0, π/2, π, 3π/2, 2π
// (exactly, against the decimal constants) gives the exact 0, 1, 0, -1, 0
// and leaves 可达有效位数 as it is; any other result is clamped to [-1, 1]
// and lowers 可达有效位数 to 27. 高精度开关 off: the sine in double, counted
// as a fall. An argument that is no number reads as the marker 1 of
// Hvt数转数 (whose report stands). Fault: empty value and
// "  进行[HvtSin]正弦运算时， " + trimmed x + " 数值超出计算范围，我无法计算！返回数值用 [空值] 表示。".
数值 HvtSin(const 数值& x);

// cos x = HvtSin(π/2 - (x mod 2π)); so cos(π/2) is exactly 0.
// Fault head "  进行[HvtCos]余弦运算时， ", same tail as HvtSin.
数值 HvtCos(const 数值& x);

// tan x = HvtSin(m) / HvtCos(m), m = x mod 2π, in decimal. A cosine that is
// exactly 0 (m hits π/2 or 3π/2 exactly) is a division fault: empty value
// and "  进行[HvtTan]正切运算时， " + trimmed x + the tail of HvtSin. Near but
// not at the pole a huge quotient stands.
数值 HvtTan(const 数值& x);

// cot x = HvtCos(m) / HvtSin(m); a zero sine (m = 0 or π exactly) faults with
// "  进行[HvtCot]余切运算时， " + trimmed x + the tail of HvtSin.
数值 HvtCot(const 数值& x);

// ---- Decimal angle conversions ------------------------------------------------

// An angle in the current 计算状态.角度单位 to decimal radians: 3 as it is, 60
// packed degrees through 度转梯度, 100 decimal degrees, 400 grads (times 0.9).
// An angle beyond the plain text form (an E: 1E+30, 1E-30) gives decimal 0;
// any other unit gives the empty value. Reports only through 度转梯度.
数值 度转弧度(const 数值& x);

// Packed degrees to decimal radians (the 60 branch of 度转弧度 alone).
数值 度分秒转弧度(const 数值& x);

// Packed degrees DDD.MMSSsss to decimal degrees:
// deg ± (MM + SS.sss / 60) / 60, the sign taken from the whole number (so
// -0.3 is -0.5). Seconds above 60 are taken as 60 after the message box
// text of a + " 度分秒格式的角度数据--[秒] 数据不能大于60！超出后按60计算。请检查是否角度类型选择错误。";
// minutes-and-seconds above 60 are taken as 60 after
// text of a + " 度分秒格式的角度数据--[分秒] 数据不能大于59599999....！超出后按60计算。请检查是否角度类型选择错误。"
// (both told through 交互().告知, no title). A number without a point is
// returned as read; one beyond the plain text form gives decimal 0.
// Fault: empty value and "  进行[度转梯度]运算时， " + trimmed x +
// " 数值超出计算范围，我无法计算！返回数值用 [空值] 表示。".
数值 度转梯度(const 数值& x);

// Decimal degrees to packed degrees: minutes from the fraction times 60,
// seconds rounded half away from zero to 24 decimals; 60 seconds carry into
// the minutes and 60 minutes into the degrees, away from zero (so
// 59.99999999999999999999999999 becomes 60). A number without a point is
// returned as read; one beyond the plain text form gives decimal 0.
// Never reports by itself (the guarded steps may).
数值 度转度分秒(const 数值& x);

// Packed degrees as text for result lists: 45.59599999 → "45°59′59.9999″",
// 45 → "45°00′00″", -45.5 → "-45°50′00″". The value is first formatted with
// `格式` (the coordinate screens' "00.00000000", half away from zero); minutes or seconds
// digits above 60 show as "60"; decimals of the seconds that are all zero
// are left out. A value whose text needs an exponent gives "0°".
// Never reports.
QString 角度转文本(double x, const QString& 格式);

// Text with ° ′ ″ to packed degrees: "45°59′59.9999″" → 45.59599999,
// "45°" → 45.0, "-12°30′" → -12.3. Degrees are the part ahead of "°" (none,
// blank or "+" read 0; a "-" is kept even for 0 degrees), rounded to an
// integer; minutes the magnitude of the part up to "′", rounded (61 or more
// → 60); seconds the magnitude of the part up to "″", to four decimals
// (60 or more → 59.9999). A part that is present but no number reads 0.
// Never reports.
double 文本转角度(const QString& t);

// ---- Double angle conversions (geodesy) --------------------------------------
// All work on the decimal digits of the double after the 15-digit rule
// (0.1 is 0.1), so they agree with the decimal family to the last bit of the
// nearest double; none reports, none allocates.

// Decimal degrees to radians: x · π/180 in decimal, back to the nearest
// double; |x| above 角度双精度界限 (or NaN) gives 0.0.
double 十进制度转弧度(double x);

// Packed degrees to radians: 度转梯度双精度(x) · π/180 in decimal; |x| above
// 角度双精度界限 (or NaN) gives 0.0.
double 度分秒转弧度双精度(double x);

// Packed degrees to decimal degrees, the steps of 度转梯度 without the
// message boxes (seconds above 60 and minutes-and-seconds above 60 are
// taken as 60). A value without a fraction is returned as it is; one that
// cannot be read as a decimal (beyond 7.9E+28, NaN, infinite, nonzero below
// 1E-28) gives 0.0.
double 度转梯度双精度(double x);

// Decimal degrees to packed degrees: minutes as above, seconds computed in
// double; seconds that round (half to even, two decimals) to 60.00 carry
// into the minutes and 60 minutes into the degrees, away from zero; else
// the seconds keep 15 significant digits at most 15 decimals.
// |x| above 角度双精度界限, NaN, and values without a fraction give x.
double 度转度分秒双精度(double x);

// Carry normalisation of a packed angle (the path from calculated degrees to
// a shown packed angle): seconds digits of 60 or more give up 60 to the
// minutes, minutes of 60 or more give up 60 to the degrees, away from zero;
// 45.5960 → 46.0, -0.5960 → -1.0. Decimals of a second past the twelfth
// digit are dropped. |x| above 角度双精度界限, NaN, and values without a
// fraction give x.
double 规范度分秒(double x);
