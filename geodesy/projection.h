// Ellipsoids and the Gauss-Krüger projection (module HvtZuoBiao2): the
// current ellipsoid, the six fixed-zone conversions, the zone-number rules,
// the two general conversions of the batch screens, the change of zone and
// the space rectangular conversion of the GPS tool.
//
// Words: X is north, Y is east (surveyors' order). 公里网 is a grid pair,
// 经纬度 latitude/longitude, 中央子午线 the central meridian, 带号 the zone
// number. A grid Y carries its zone number above the six integer digits:
// Y = ZoneNumber·1000000 + FE + easting.
//
// Every conversion takes its coordinates by reference, overwrites them and
// returns a note: empty after a plain success, a zone remark after a success
// worth a remark, or an error text that begins with "错误", the coordinates
// then both 0. Nothing is thrown and nothing goes to the error collector.
//
// One thread: EllipsoidRecord and CentralMeridian (坐标状态, below) are
// rewritten by every conversion.
#pragma once

#include "geodesy/state.h"

#include <QString>
#include <QStringList>
#include <cstdint>


// ZoneWidthCode: 1 = 1.5-degree zone, 3 = 3-degree, 6 = 6-degree, anything
// else (by convention 0) a free meridian without zone number.
using ZoneWidthCode = std::int16_t;

// Selects the ellipsoid by key: "BJ" 北京54, "XA" 西安80, "2K" 国家2000,
// "WGS" WGS84 counted the Chinese way, "WGSN"/"WGSS" WGS84 counted from
// 180° W (WGSS with false northing 10000000), "UTMN"/"UTMS" the same with
// k0 0.9996. The key is trimmed and upper-cased first. An unknown key leaves
// the record untouched and says nothing (callers always pass one of the
// eight). Never reports.
void 设置椭球(const QString& 键);

// True for one of the eight keys above (after trim and upper-case).
bool 是已知椭球键(const QString& 键);

// ---- The six fixed-zone conversions (packed degrees DDD.MMSSsss) ----
//
// Forward: B (latitude) becomes X, L (longitude) becomes Y with the zone
// number in front. Valid: −90 ≤ B ≤ 90, −180 ≤ L ≤ 180 on the packed
// numbers, else "错误溢出?原始经纬度数值超出常规范围 |x|<=90 |y|<=180"
// (6-degree) or "错误溢出?原始角度数值超出常规范围 |x|<=90 |y|<=180"
// (3- and 1.5-degree). The meridian used is L0 unless |L − L0| exceeds
// 4/3/2 (6/3/1.5-degree), then L; either way snapped to the zone's canonical
// meridian, ties to even (6-degree: 120 → 117, 126 → 129). X and Y are
// rounded to 3 decimals, ties to even. Notes: "……跨带 117°" when the point
// lies more than 3/1.5/0.75 degrees from the meridian used, "┄┄中央 117°"
// when the meridian was corrected, else empty. A floating-point fault gives
// 0, 0 and "错误溢出?坐标转换运算时超出范围".
QString 经纬度转六度带(double& B, double& L, double L0, const QString& 键);
QString 经纬度转三度带(double& B, double& L, double L0, const QString& 键);
QString 经纬度转一点五度带(double& B, double& L, double L0, const QString& 键);

// Inverse: X becomes the latitude, Y (with zone number) the longitude, both
// packed, rounded to 10 decimals (ties to even) and carried (60″ → 1′).
// Limits, tested in this order, each with its own "错误?原始…超出常规范围!"
// message: X = Y = 0; Y below 1001000 (6-degree) or 1000; Y above 60999000 /
// 119999000 / 239999000; |X − FN| above 10002200. A zone number without a
// meridian in −180…180 gives "错误?原始东Y坐标超出常规范围!". A fault gives
// "错误溢出?坐标转换运算时超出范围". The footpoint is the closed series, no
// iteration.
QString 六度带转经纬度(double& X, double& Y, const QString& 键);
QString 三度带转经纬度(double& X, double& Y, const QString& 键);
QString 一点五度带转经纬度(double& X, double& Y, const QString& 键);

// ---- Zone numbers ----

// Zone number of a central meridian (decimal degrees) as text "00", or
// "==" when the meridian lies outside −180…180 or is no meridian of that
// width (114 has no 6-degree number) or the width is not 1, 3, 6.
// Examples: 117 → 6: "20", 3: "39", 1: "77"; −177 UTM (EastCount false),
// 6: "01". Never reports.
QString 中央子午线转带号(double 中央子午线, ZoneWidthCode 带宽, bool EastCount);

// Central meridian (decimal degrees, one decimal kept) of a zone number, 0
// when there is none (z ≤ 0, or above 60/119/238 for width 6/3/1). Width 1
// with z = 0 gives 1.5. Never reports.
double 带号转中央子午线(std::int16_t 带号, ZoneWidthCode 带宽, bool EastCount);

// ---- General conversions of the batch screens (decimal degrees) ----
// They do not select an ellipsoid: call 设置椭球 once per run first.

// Latitude/longitude (decimal degrees) to grid. Widths 1, 3, 6 snap the
// meridian as the fixed-zone procedures do (guards 2, 3, 4) and put the
// zone number in front of Y; any other width takes L0 as given, refusing a
// longitude more than 4 degrees from it ("错误? 中央子午线设置有误！"). Range
// "错误? 经纬度应 |x|<=90 |y|<=180". Notes "┄跨带 117°" beyond 0.75/1.5/3/4
// degrees from the meridian, "┄中央 117°" when the meridian was corrected.
// X, Y rounded to 3 decimals, ties to even. Fault:
// "错误溢出?坐标转换时超出计算范围！". Sets CentralMeridian and ZoneNumber.
QString 度数转公里网(double& 纬度, double& 经度, double 中央子午线, ZoneWidthCode 带宽);

// Grid to latitude/longitude (decimal degrees, rounded to 10 decimals, ties
// to even). A zone number in front of Y fixes the meridian for widths 1, 3,
// 6; for any other width it is dropped and L0 is used. Messages
// "错误?公里网坐标(|X|)超出常规!" (|X − FN| > 10002200),
// "错误?公里网坐标(Y<0)超出常规!", fault "错误溢出?转换时超出计算范围！".
// Sets CentralMeridian.
QString 公里网转度数(double& X, double& Y, double 中央子午线, ZoneWidthCode 带宽);

// Change of zone on the current ellipsoid: 公里网转度数 on the left meridian,
// then 度数转公里网 on the right one, both free (width 0). The notes of the
// two steps join. The caller refuses meridians more than 4 degrees apart.
QString 公里网换带(double& X, double& Y, double 左中央子午线, double 右中央子午线);

// Latitude B, longitude L (packed) and height H (m) to space rectangular
// X, Y, Z with the polar radius of curvature c in place of the prime
// vertical radius (the GPS tool's spherical shortcut, kept on purpose).
// B exactly ±90 is the pole: 0, 0, ±(c + H). Results formatted "0.000" and
// read back. Selects the ellipsoid by key. Always true.
bool 经纬度转空间直角(double& B, double& L, double& H, const QString& 键);

// Round x at `位` decimals (0..15), ties to even, on the value's shortest
// 15-digit decimal text: 0.0005 → 0.000 at 3, 0.0015 → 0.002. Fast double
// path away from ties. Never reports; NaN and infinities are returned as
// they are.
double 偶舍入(double x, int 位);
