// The geodesy floor's slice of the process-wide state, one instance
// `坐标状态`: the current ellipsoid and the central meridian and zone of the
// latest conversion, the splitter's arrays, and the number formats and list
// separator of the coordinate screens. One thread: every conversion
// rewrites EllipsoidRecord and CentralMeridian.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>

// One reference ellipsoid with its projection constants. Every value is a
// stored constant from the tables in projection.cpp, never derived at run
// time: derived values differ in the late digits (for 北京54, c lies 0.017 m
// above a²/b) and the stored digits are the ones every result depends on.
struct 椭球记录 {
    bool EastCount = false;  // true: zones count east from 0°, negative longitudes wrap +360;
                             // false: zones count from 180° W (UTM), longitudes shift +180
    double a = 0;    // semi-major axis, m
    double b = 0;    // semi-minor axis, m
    double e = 0;    // first eccentricity
    double e2 = 0;   // e²
    double e4 = 0;   // e⁴
    double ep = 0;   // second eccentricity e′
    double ep2 = 0;  // e′²
    double f = 0;    // flattening
    double FN = 0;   // false northing, m
    double FE = 0;   // false easting, m
    double k0 = 0;   // scale on the central meridian
    double n = 0, n2 = 0, n3 = 0;  // third flattening (a−b)/(a+b), n², n³
    double A = 0;    // rectifying radius, m (meridian arc of one radian of rectifying latitude)
    double c2 = 0, c4 = 0, c6 = 0;  // footpoint-latitude series coefficients
    double M0 = 0;   // meridian radius at the equator a·(1−e²), m
    double A0 = 0, A2 = 0, A4 = 0, A6 = 0;  // meridian-arc series coefficients, in units of a
    double c = 0;    // polar radius of curvature, m
};

// Shared array of the stricter splitter 序号坐标拆分 (coordtext.h), indexed
// from 1 (slot 0 unused); 个数 counts the stored, non-blank fields.
struct 拆分数组 {
    QStringList 元素;  // text of each entry (names as typed, values as number text)
    int 个数 = 0;
};

// The module state of the geodesy, one instance `坐标状态`.
struct 坐标模块状态 {
    // The current ellipsoid. All zero until the first 设置椭球 with a known
    // key; an unknown key leaves it as it was.
    椭球记录 EllipsoidRecord;
    // Central meridian, decimal degrees, of the most recent conversion.
    // Callers read it after a conversion to learn the snapped meridian.
    double CentralMeridian = 0;
    // Zone number of the latest general forward conversion (度数转公里网);
    // 0 for a free meridian.
    std::int16_t ZoneNumber = 0;
    // The five arrays of 序号坐标拆分: name, first to fourth value, each
    // sized to the line count + 1; and the widest field (display width)
    // met in the last split.
    拆分数组 拆分序号, 拆分值1, 拆分值2, 拆分值3, 拆分值4;
    int 拆分最宽字段 = 0;

    // Number formats and the list separator of the coordinate screens
    // (设置输出格式 at start and when a coordinate screen loads).
    QString 格式7位坐标 = QStringLiteral("0000000.000");
    QString 格式8位坐标 = QStringLiteral("00000000.000");
    QString 格式高程 = QStringLiteral("###0.000");
    QString 格式2位角度 = QStringLiteral("00.00000000");
    QString 格式3位角度 = QStringLiteral("000.00000000");
    std::int32_t 格式小数位数 = 3;
    QString 列表分隔符 = QStringLiteral(",");  // separator of the coordinate lists
};

inline 坐标模块状态 坐标状态;
