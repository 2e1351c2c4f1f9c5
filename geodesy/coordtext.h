// Coordinate text: the cleaners and the list parser of the batch screens,
// the stricter splitter of the distance and plane-attitude screens, and the
// layout of one result row. Surveyors paste lists from spreadsheets, field
// books and Chinese word processors; everything here tolerates that noise
// and never throws: a run-time failure inside is passed over and the
// procedure goes on with what it has.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

// The parser's parallel arrays, one index a point, 1..count (slot 0 unused).
struct CoordinateRow {
    QStringList 序号组;            // point name, as it stood in the line
    std::vector<double> X组;       // X, or latitude as packed degrees
    std::vector<double> Y组;       // Y, or longitude as packed degrees
    std::vector<double> 高程组;    // height, 0 when missing
};

// Symbol clean-up: U+3000 → blank; runs of 5, 4, 3, 2 blanks → one (one
// pass each); "―" → "-", "＋" → "+", "·" and "．" → ".", "，" → ",",
// "＃" "＠" "＊" "＆" "／" to their ASCII forms; and full-width digits
// ０-９ and "－" to ASCII, so that a list typed with a Chinese input method
// reads as typed. A text that sorts at or below CR gives "". Never reports.
QString 字符规范(const QString& 文本);

// One field to a number text: upper-cased and trimmed, the leading run of
// digits, ".", "+", "-", "E" is read as a double and given back as its
// trimmed text ("123.45米" → "123.45", "1.5E3" → "1500"). Empty when the
// field starts with anything else, holds no digit before the first other
// character, or does not read as a number. Never reports.
QString 提取数字(const QString& 文本);

// The list parser. 个数 goes in as the limit (callers pass 200; <= 0 means
// none) and comes out as the number of points stored in 组 (1..个数). A line
// is data when it lies past position 3 of the cleaned text, holds at least
// one separator (坐标状态.列表分隔符, TAB read as ","), more than one numeric
// character and no fewer numeric characters than separators. A first field
// that does not begin with a digit, ".", "+", "-" is the name; unnamed
// points get D001, D002, …. 角度: the two values are latitude/longitude
// (fields with °′″ are read as angle text, to packed degrees). 顺序: "XYH"
// or "YXH" (anything else becomes "YXH"). 带号文本: a zone 1..239 put in
// front of a grid Y of 0…999999.999 (not in angle mode); reformatted "#00",
// or emptied when out of range. Returns the cleaned list (each point
// rewritten from the stored numbers, CR LF line ends), headed by range
// remarks ("┈┈ 有纬度数据大于90度错误！！！" …) and the first dropped line
// that begins with "*". Empty input: count 0 and "没有发现坐标数据！"; no
// point: "该字符串中没有发现坐标数据!!!". Never reports.
QString 坐标文本解析(const QString& 文本, int& 个数, CoordinateRow& 组, bool 角度,
                   QString& 顺序, QString& 带号文本);

// The stricter splitter (distance, plane attitude). Maps the many minus,
// plus, point and comma look-alikes to ASCII, drops every other character
// outside A–z, 0–9 and ",.-+ " (one 交互().告知 "数据中存在无用的字符或汉字！
// 已被自动清除，计算继续进行。" for each dropped character), then fills the
// five arrays of 坐标状态 (拆分序号, 拆分值1..4) by field place: with 带序号
// place 1 is the name and places 2..5 the values, without it places 1..4
// are the values. Lines may end in CR LF, LF or CR. Returns the cleaned
// text (blank in front, CR LF line ends), or that text up to the fault, CR LF and
// "原始坐标数据有误，无法完成数据转换，请检查[序号]和[数据]。" when a field
// lies past the last place or a value is no number. A trimmed text of fewer
// than 2 characters is returned as it is, arrays untouched.
QString 序号坐标拆分(const QString& 文本, bool 带序号);

// ---- Result layout ----

// Greatest display width (显示宽度) over names 1..个数.
int 最宽序号宽度(const CoordinateRow& 组, int 个数);

// One result row: [name padded to 最宽, " , "] then by 顺序 "YXH": Y " , " X
// or "XYH": X " , " Y; then " , " and the height unless its text is "0" or
// empty; then the note; then CR LF. X, Y, height are texts already
// formatted by the caller.
QString 结果行(const QString& 序号, int 最宽, bool 带序号, const QString& 顺序,
              const QString& X文本, const QString& Y文本, const QString& 高程文本,
              const QString& 附注);

// Number texts of the result lists, half away from zero at the last place:
// grid X "0000000.000", grid Y "00000000.000", height "###0.000", the
// cleaned-list value "#####0000.000" and height "##00.000".
QString 格式北坐标(double x);
QString 格式东坐标(double y);
QString 格式高程(double h);
QString 格式整理值(double v);
QString 格式整理高程(double h);
