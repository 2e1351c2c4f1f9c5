// The scientific calculator's logic, free of any widget: from typed text to
// the three texts the screen shows, the store of typed expressions, the
// button panel, the angle-unit cycle and the memory variables R..Z.
//
// The screen (Form1/Form3) is a thin set of handlers over this: it hands in
// the text of Text1 with the caret, shows what comes back, and keeps one
// 算式存储 object for as long as it lives. Nothing here blocks on a dialog:
// the evaluator's message boxes go through 交互().
#pragma once

#include "numeric/state.h"

#include <QString>
#include <QStringList>
#include <array>

// ---------------------------------------------------------------------------
// Fixed texts of the calculator (the screen uses them as they stand).
namespace 计算器文本 {
extern const QString 正在计算;          // Text2 while the compute runs
extern const QString 核对提示;          // Text3 at the start of a compute (two lines)
extern const QString 严重错误;          // Text2 when a failure left 首个错误 blank
extern const QString 角度说明;          // the sentence on angle notation (Text3, dcButton13)
extern const QString 角度混合提示;      // Text3 after the angle-unit button
extern const QString 向前提示;          // Text3 after dcButton11
extern const QString 向后提示;          // Text3 after dcButton12
extern const QString 内存变量提示;      // help of the memory-variable buttons
extern const QString 运算顺序;          // the order sentence behind several helps
// Tooltips of the controls.
extern const QString 提示Text1, 提示Text2, 提示Text3, 提示Text4, 提示Combo1, 提示Command5,
    提示dcButton11, 提示dcButton12;
}  // namespace 计算器文本

// ---------------------------------------------------------------------------
// Compute (dcButton10).


// What the screen shows after a compute.
struct 计算显示 {
    QString 算式;        // Text1: the tidy text after 算式字符规整 and 表达式规整
    QString 结果;        // Text2: the result line, or 首个错误 on failure
    QString 状态;        // Text3: status text, or 错误记录 (trimmed) on failure
    QString 原始结果;    // 表达式计算's own text (trimmed), before cut and rounding;
                         // empty when normalisation already failed
    bool 成功 = false;   // false when 错误数 was above 0 (the result is void)
    bool 约数 = false;   // the result was cut to 可达有效位数
};

// The compute procedure, under `设置` (decimals clamped to 0..28; the
// caller's own settings are back when it returns): normalise, on no error
// reset and evaluate, cut to 可达有效位数 with the mark "约数", round by
// 四舍五入, pad to column 31 and fill with "_" (or blanks for an approximate
// result). On failure 结果 is 首个错误 (or 严重错误 when blank) and 状态 is
// 错误记录, trimmed. Ends with 可达有效位数 29 and 清除计算状态, as the
// screen does after showing the result. Never throws; messages of the
// evaluator go through 交互().
计算显示 计算器计算(const QString& 输入, const 输出设置& 设置);

// Formats an evaluator result as the result line (steps 6 to 12 of the
// compute): uses 计算状态.可达有效位数 and 计算状态.输出小数位数; sets 约数 and puts
// the digit warning into 状态 when it cuts. Exposed for tests and the CLI.
QString 结果行(const QString& 原始结果, bool* 约数 = nullptr, QString* 状态 = nullptr);

// ---------------------------------------------------------------------------
// The expression store: 1000 texts, 1-based, with a count and a cursor.

constexpr int 算式存储容量 = 1000;
constexpr int 示例数 = 18;

struct 算式存储 {
    std::array<QString, 算式存储容量 + 1> 算式{};  // [1..1000]; [0] unused
    int 数量 = 0;   // highest used index
    int 当前 = 0;   // current index (0: none yet)
};

// The i-th sample (1..18), each beginning with "示例", and its expected
// value as the store buttons show it ("" when none is given).
QString 示例算式(int i);
QString 示例预期(int i);

// Empties the store and fills it with the 18 samples (count 18, current 18).
void 填入示例(算式存储& 存储);

// What the store buttons give the screen.
struct 存储显示 {
    QString 算式;   // Text1
    QString 结果;   // Text2
    QString 状态;   // Text3
    int 序号 = 0;   // Text4
};

// dcButton9: stores a non-blank text (count + 1, wrapping to 1 above 999;
// the cursor follows) and clears Text1/Text2. A blank text stores nothing
// but clears all the same.
存储显示 存储并清除(算式存储& 存储, const QString& 当前算式);
// dcButton11 / dcButton12: move the cursor down / up, wrapping within
// 1..数量; samples 1..18 show their expected value in 结果. With an empty
// store the texts are empty and 序号 0.
存储显示 前一个算式(算式存储& 存储);
存储显示 后一个算式(算式存储& 存储);

// ---------------------------------------------------------------------------
// The angle-unit button (Command5).

int 下一个角度单位(int 单位);         // 60 → 100 → 3 → 60; anything else → 60
QString 角度单位标题(int 单位);       // "度分秒.5959", "百分度.9999", "弧度角"

// ---------------------------------------------------------------------------
// The panel of 60 buttons (HmBut 1..60).

constexpr int 面板按钮数 = 60;

QString 面板按钮标题(int n);  // caption for the button face
QString 面板按钮文本(int n);  // text inserted; "" for 50; a fresh random number for 60
QString 面板按钮帮助(int n);  // help shown in Text3 ("" for none)

struct 插入结果 {
    QString 文本;   // new Text1
    int 光标 = 0;   // new caret place (0-based count of units ahead of it)
};

// Insert-at-caret: 光标 is the recorded caret (0-based), 选择长度 the
// selection behind it. With caret 0 and an empty text the insertion is
// simply the text; else the caret is limited to the length, the selection
// is replaced, and the caret goes behind the inserted text. Never reports.
插入结果 插入文本(const QString& 文本, int 光标, int 选择长度, const QString& 插入);
// The same for panel button n (1..60, not 50).
插入结果 面板插入(const QString& 文本, int 光标, int 选择长度, int n);

// Button 50: Text2 in scientific form (科学计数形式), then 清除计算状态.
QString 科学计数按钮(const QString& 结果文本);

// Button 60: one long random fraction from three draws of a new seeding each.
QString 随机数文本();

// ---------------------------------------------------------------------------
// Memory variables R..Z (Form3).

constexpr std::array<char16_t, 9> 内存变量字母 = {u'R', u'S', u'T', u'U', u'V', u'W', u'X', u'Y', u'Z'};
static_assert(内存变量字母.size() == 9);

void 内存变量全为一();          // Command1: R..Z = 1
void 内存变量一至九();          // Command2 and the calculator's opening: R..Z = 1..9
QStringList 内存变量文本();     // the nine texts, R first
// Command3: 清除计算状态, then each variable becomes 规整高精度数字文本 of its
// box ("0" when empty; the marker 1 with a message in 错误记录 when it can't
// be read). Returns the nine texts shown back. Fewer than nine boxes leave
// the rest untouched.
QStringList 应用内存变量(const QStringList& 九个文本);

// The calculator's opening steps 1-2: 角度单位 60, R..Z = 1..9, counters 0.
void 计算器初始化();
