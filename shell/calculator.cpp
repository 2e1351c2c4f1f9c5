// The calculator's logic: compute, result line, store, panel, angle unit and
// memory variables. No widget is touched here; Form1/Form3 show the texts.
#include "shell/calculator.h"

#include "expression/evaluator.h"
#include "expression/normalise.h"
#include "expression/validate.h"
#include "numeric/guarded.h"
#include "numeric/rounding.h"
#include "numeric/text.h"
#include "shell/state.h"

#include <QRandomGenerator>
#include <algorithm>

namespace 计算器文本 {
const QString 正在计算 = QStringLiteral("正在计算，因计算步骤复杂，可能需要一段时间，请稍等。。。。。。");
const QString 核对提示 = QStringLiteral("请在重要计算时仔细核对运算成果，多次运算后尾部采用近似值表示。") +
                         QStringLiteral("\r\n") +
                         QStringLiteral("如有计算错误，请通知软件作者，视情况给予部分奖励。");
const QString 严重错误 = QStringLiteral("算式中存在严重错误，请查找原因，修改算式后再计算。");
const QString 角度说明 = QStringLiteral(
    "角度的表示：度分秒.5959 写作 度.分分秒秒，例如 45°59′59.99″ 写作 45.595999；"
    "百分度.9999 写作十进制的度，直角为 90；弧度角直接写弧度值。");
const QString 角度混合提示 = QStringLiteral("混合计算要保持角度单位相同，角度相加减不要使用度分秒.5959格式。");
const QString 向前提示 = QStringLiteral("向前显示已经存储的算式，以便你重复利用算式进行计算。");
const QString 向后提示 = QStringLiteral("向后显示已经存储的算式，以便你重复利用算式进行计算。");
const QString 内存变量提示 = QStringLiteral("内存变量 -- 共有九个，你可以修改它们，并且编入公式中参加计算。");
const QString 运算顺序 = QStringLiteral("括号()--变量r等--函数sin等--阶乘!百分数%--乘方^--乘除余--加减。");
const QString 提示Text1 = QStringLiteral("建议将常用公式存入一文本文件中，使用时复制到此处。");
const QString 提示Text2 = QStringLiteral("运算结果显示在此处，尾部用__补齐小数位数。");
const QString 提示Text3 = QStringLiteral("状态栏---对当前功能的解释、说明");
const QString 提示Text4 = QStringLiteral("当前算式的序号");
const QString 提示Combo1 = QStringLiteral("设置小数位数");
const QString 提示Command5 = QStringLiteral(
    "角度的计量单位--度分秒.5959、弧度和百分度.9999。另外[梯度进制]参见[角度变换]模块。");
const QString 提示dcButton11 = QStringLiteral("提取前一个的算式");
const QString 提示dcButton12 = QStringLiteral("提取后一个的算式");
}  // namespace 计算器文本

using namespace 计算器文本;

// ---------------------------------------------------------------------------
// Compute.

QString 结果行(const QString& 原始结果, bool* 约数, QString* 状态) {
    QString r = 原始结果;
    bool 标记 = false;
    if (判断数的有效字符长度(数值(r)) > 计算状态.可达有效位数) {
        if (状态)
            *状态 = QStringLiteral("在运算中，某函数运算结果的有效数字较少，经混合运算后，可能从第") +
                    QString::number(计算状态.可达有效位数 + 1) +
                    QStringLiteral("位有效数字后不能满足精度要求，后部应于删除。");
        标记 = true;
        r = Hvt有效长度(数值(r), 计算状态.可达有效位数);
    }
    r = txt::trim(四舍五入(数值(r), 计算状态.输出小数位数).文本());
    if (r.startsWith(u'.')) r = QStringLiteral("0") + r;
    else if (r.startsWith(QStringLiteral("-."))) r = QStringLiteral("-0.") + txt::mid(r, 3);

    // Align the point to column 31: blanks ahead of the number.
    const int 点位 = txt::instr(r, QStringLiteral("."));
    const int n = 点位 > 0 ? 点位 - 1 : txt::len(r);
    if (n < 30) r = QString(30 - n, u' ') + r;
    if (标记 && r.startsWith(QStringLiteral("    "))) r = QStringLiteral("约数") + txt::mid(r, 5);

    if (!r.contains(u'E')) {
        if (显示宽度(r) == 30) r += u'.';
        const int 补 = 计算状态.输出小数位数 + 31 - 显示宽度(r);
        if (补 > 0) r += QString(补, 标记 ? u' ' : u'_');
    }
    if (约数) *约数 = 标记;
    return r;
}

计算显示 计算器计算(const QString& 输入, const 输出设置& 设置) {
    设置作用域 作用域({std::clamp(设置.小数位数, 0, 28), 设置.角度单位, 设置.高精度});
    计算显示 d;
    d.结果 = 正在计算;
    d.状态 = 核对提示;
    QString t = 算式字符规整(输入);
    t = 表达式规整(t);
    d.算式 = t;
    if (计算状态.错误数 <= 0) {
        清除计算状态();
        const QString r = txt::trim(表达式计算(t));
        d.原始结果 = r;
        d.结果 = 结果行(r, &d.约数, &d.状态);
        if (计算状态.错误数 <= 0) {
            if (QString::compare(计算状态.提示记录, QStringLiteral("    ")) > 0) d.状态 = 计算状态.提示记录;
            d.成功 = true;
        }
    }
    if (!d.成功) {
        d.结果 = txt::trim(计算状态.首个错误).isEmpty() ? 严重错误 : 计算状态.首个错误;
        d.状态 = txt::trim(计算状态.错误记录);
        d.约数 = false;
    }
    计算状态.可达有效位数 = 29;
    清除计算状态();
    return d;
}

// ---------------------------------------------------------------------------
// Samples and the store.

namespace {

struct 示例项 {
    const char16_t* 算式;
    const char16_t* 预期;
};

// The calculator's acceptance list. Each text begins with "示例", which the
// character filter drops; the expected value is what the store buttons show.
constexpr std::array<示例项, 示例数> 示例表 = {{
    {u"示例 -1。115671/-5.0432123478加3。33123-4。444+(-5。53456*-2.0123456+8。8880123)\\-3.3456",
     u"2.4059120570021821219456683533"},
    {u"示例 -1。123^3-(4。4441-5。5554%)^-8。8881-3.7!/567.37143", u"-1.458550153546744806316377515"},
    {u"示例 -1-2.0034521除3.0023417+33-44", u"-12.667296497264118870946634755"},
    {u"示例 -3+（1乘2-1）除4-sin(-45.595999)+(cos(-45.595999)-tan(-45.595999))*5+cot(-45.595999)/3",
     u"6.29838657043613382880812183（度分秒）"},
    {u"示例 Asin(-0.456789321)+Acos(-0.123456789)-Atan(-1.456789321)+Acot(-2.234567891)",
     u"281.33504626506799595771344781（百分度）"},
    {u"示例 sinh ( +2.0123 ) +sinh ( -2 ) +cosh ( -2.1 ) -tanh ( -2.34 ) -coth ( -1.234 )",
     u"6.35768161559461"},
    {u"示例 sec ( 23.45599 ) -csc ( 34.595987 ) -Asec ( -2.0123 ) +Acsc ( -3.016789 )",
     u"-139.339136444862（度分秒；此值有误，留作核对）"},
    {u"示例 ( lg ( 6.234 )  / lg ( 0.24531231 )  ) -ln ( 1.3456317 ) +lg ( 6.345210 )",
     u"-0.796714777859288"},
    {u"示例 sin(45.555555)+cos(145.555555)-tan(45.555555555)-cot(-45.555555555)",
     u"度分秒 -0.174953980558103538960814575, 百分度 -0.1495352280195320427937116182"},
    {u"示例 -0。11 加  [ 2.2 - 3。3 ]  乘以 -2 _  ( 5.5 - 6.6 + 7.7 )  除 -9",
     u"2.8233333333333333333333333333"},
    {u"示例 -23.123e25*5 + 1.23456e12*1.2e1-1.111111111111111111122222222222222222222333333333e3/12345",
     u"-1156149999999985185280000000.1"},
    {u"示例 12.234e12*45^3.00012+2.1234321e134/987654321^1.001", u"2.10590514306334E+125"},
    {u"示例 计算直角三角型的弦长  （r^2 + s^2) ^ 0.5", u""},
    {u"示例 计算圆的面积  π* r^2", u""},
    {u"示例 计算球的体积  4/3 * π * r^3", u""},
    {u"示例 计算圆锥的体积  1/3 * π * r^2 * t", u""},
    {u"示例采用弧度制 ( 0.000000005 + 0.00000006 - 123.0004567 )  * 0.00012345 / 167.234567 \\ 234.12 *  "
     u"( 1 / 0.00123 ) % + 12! - 0.234 ^ 1.01765 ^ 9 ^  ( 1 / 2 )  ^  ( 1 / 3 )  ^  ( 1 / 7 ) -sin ( 1.5959 )  "
     u"* cos ( 0.5959 ) +tan ( 1.5969) -cot ( 3.5856543 ) + π - ε - 1e-28",
     u"约数   479001558.464642617773159716（弧度）"},
    {u"示例 r * s * t * u * v * w * x * y * z", u"362880"},
}};
static_assert(示例表.size() == 18);

}  // namespace

QString 示例算式(int i) {
    if (i < 1 || i > 示例数) return QString();
    return QString::fromUtf16(示例表[static_cast<std::size_t>(i - 1)].算式);
}

QString 示例预期(int i) {
    if (i < 1 || i > 示例数) return QString();
    return QString::fromUtf16(示例表[static_cast<std::size_t>(i - 1)].预期);
}

void 填入示例(算式存储& 存储) {
    存储 = 算式存储{};
    for (int i = 1; i <= 示例数; ++i) 存储.算式[static_cast<std::size_t>(i)] = 示例算式(i);
    存储.数量 = 示例数;
    存储.当前 = 示例数;
}

存储显示 存储并清除(算式存储& 存储, const QString& 当前算式) {
    // Twelve blanks are the lowest text that counts as something typed.
    if (QString::compare(当前算式, QString(12, u' ')) > 0) {
        存储.数量 += 1;
        if (存储.数量 > 999) 存储.数量 = 1;
        存储.当前 = 存储.数量;
        存储.算式[static_cast<std::size_t>(存储.当前)] = 当前算式;
    }
    存储显示 s;
    s.状态 = 角度说明;
    s.序号 = 存储.当前;
    return s;
}

namespace {
存储显示 显示存储项(const 算式存储& 存储, const QString& 状态) {
    存储显示 s;
    s.状态 = 状态;
    s.序号 = 存储.当前;
    if (存储.当前 >= 1 && 存储.当前 <= 算式存储容量) {
        s.算式 = 存储.算式[static_cast<std::size_t>(存储.当前)];
        if (存储.当前 <= 示例数) s.结果 = 示例预期(存储.当前);
    }
    return s;
}
}  // namespace

存储显示 前一个算式(算式存储& 存储) {
    if (存储.数量 < 1) {
        存储.当前 = 0;
        return 显示存储项(存储, 向前提示);
    }
    存储.当前 -= 1;
    if (存储.当前 < 1 || 存储.当前 > 存储.数量) 存储.当前 = 存储.数量;
    return 显示存储项(存储, 向前提示);
}

存储显示 后一个算式(算式存储& 存储) {
    if (存储.数量 < 1) {
        存储.当前 = 0;
        return 显示存储项(存储, 向后提示);
    }
    存储.当前 += 1;
    if (存储.当前 > 存储.数量 || 存储.当前 < 1) 存储.当前 = 1;
    return 显示存储项(存储, 向后提示);
}

// ---------------------------------------------------------------------------
// Angle unit.

int 下一个角度单位(int 单位) {
    switch (单位) {
    case 60: return 100;
    case 100: return 3;
    default: return 60;
    }
}

QString 角度单位标题(int 单位) {
    switch (单位) {
    case 100: return QStringLiteral("百分度.9999");
    case 3: return QStringLiteral("弧度角");
    default: return QStringLiteral("度分秒.5959");
    }
}

// ---------------------------------------------------------------------------
// The panel.

namespace {

struct 按钮项 {
    const char16_t* 标题;
    const char16_t* 文本;
    const char16_t* 帮助;
    int 附加;  // 0 none, 1 the order sentence, 2 "28 digits", 3 "15 digits",
               // 4 "trig 28 digits", 5 the four-rules promise, 6 inverse promise
};

constexpr std::array<按钮项, 面板按钮数> 按钮表 = {{
    {u"1", u"1", u"", 0}, {u"2", u"2", u"", 0}, {u"3", u"3", u"", 0}, {u"4", u"4", u"", 0},
    {u"5", u"5", u"", 0}, {u"6", u"6", u"", 0}, {u"7", u"7", u"", 0}, {u"8", u"8", u"", 0},
    {u"9", u"9", u"", 0}, {u"0", u"0", u"", 0},
    {u".", u".",
     u"在一个数中不能使用多个[小数点]。并且当数位（整数位+小数位）大于29位时程序将对尾部进行舍位操作。", 0},
    {u"(", u"(", u"[括号]必须成对使用，汉字下的括号也可以使用。", 0},
    {u")", u")", u"[括号]必须成对使用，汉字下的括号也可以使用。", 0},
    {u"+", u"+", u"  [ -- ]将被转换为 + ,[ +- ]将被转换为 -。", 1},
    {u"-", u"-", u"[ — _ ]等将被转换为 -。", 1},
    {u"*", u"*", u"    因[X x]为字母，为避免混淆，[乘＊]等乘法符号用 * 表示。    eg:-3乘-2 =>(-3)*(-2)", 5},
    {u"/", u"/", u"除数不能是 0，否则出现溢出错误。[除 ｜：| ÷]等将被转换为 /。eg:-3÷-2 =>(-3)/(-2)", 5},
    {u"余", u"\\",
     u"使用[余] \\ 运算符计算整除后的余数,例 4\\-3=1   -5.12\\3=-2.12。  注意 \\ * / 为同级运算符。", 0},
    {u"1/x", u"1/", u" 求一个数的倒数---该数不能为 O 。eg:1/-2 =>1/(-2)", 0},
    {u"%", u"%", u" % 代表百分之一。", 1},
    {u"空格", u" ", u"[空格]无实际作用，仅起分隔易看的作用。", 0},
    {u"n!", u"!", u"! 代表[阶乘]，5! = 1*2*3*4*5 。 运算顺序为：", 1},
    {u"x^y", u"^", u"^ 代表[乘方]，5^3 = 5*5*5  -2^-3 =>(-2)^(-3)。 运算顺序为：", 1},
    {u"x²", u"^2", u"^2 代表[平方]，5^2 = 5*5  -3^-2 =>(-3)^(-2)。 运算顺序为：", 1},
    {u"√", u"^(1/2)", u"[开方]必须用[乘方]代替 ，^(1/2) 即为开2次方。", 2},
    {u"∛", u"^(1/3)", u"[开方]必须用[乘方]代替 ，^(1/3) 即为开3次方。", 2},
    {u"ⁿ√", u"^(1/)", u"[开方]必须用[乘方]代替 ，^(1/8) 即为开8次方。", 2},
    {u"log", u"( Lg()/Lg() )", u"求对数:例如 以3为底 5的对数 log 3 （5）==> ( Lg(5)/Lg(3) )。", 3},
    {u"Ln", u"Ln()", u"求自然对数 : Ln(X) 以科学自然数为底的对数，X应大于0 。", 3},
    {u"Lg", u"Lg()", u"求普通对数 : Lg(X) 以10为底的对数，X应大于0 。", 3},
    {u"Sin", u"Sin()", u"正弦函数---必须注意角度的制式，度分秒和百分度、弧度。", 4},
    {u"Cos", u"Cos()", u"余弦函数---必须注意角度的制式，度分秒和百分度、弧度。", 4},
    {u"Tan", u"Tan()", u"正切函数---必须注意角度的制式，度分秒和百分度、弧度。", 4},
    {u"Cot", u"Cot()", u"余切函数---必须注意角度的制式，度分秒和百分度、弧度。", 4},
    {u"Asin", u"Asin()", u"反正弦函数---必须注意角度的三种制式，Asin(x) 要求 -1 ≤ x ≤ 1 。", 6},
    {u"Acos", u"Acos()", u"反余弦函数---必须注意角度的三种制式，Acos(x) 要求 -1 ≤ x ≤ 1 。", 6},
    {u"Atan", u"Atan()", u"反正切函数---必须注意角度的三种制式，Atan(x) 的 x 可为任意数 。", 6},
    {u"Acot", u"Acot()", u"反余切函数---必须注意角度的三种制式，Acot(x) 的 x 可为任意数 。", 6},
    {u"π", u"π", u"圆周率 π 的值为 3.1415926535897932384626433833 。", 0},
    {u"ε", u"ε", u"科学自然数 ε 的值为 2.71828182845905 。", 0},
    {u"Sinh", u"Sinh()", u"（双曲正弦） Sinh(x)= (ε^x - ε^-x) / 2 ", 2},
    {u"Cosh", u"Cosh()", u"（双曲余弦） Cosh(x)= (ε^x + ε^-x) / 2 ", 2},
    {u"Tanh", u"Tanh()", u"（双曲正切） Tanh(x)= (ε^x - ε^-x) / (ε^x + ε^-x) ", 2},
    {u"Coth", u"Coth()", u"（双曲余切） Coth(x)= (ε^x + ε^-x) / (ε^x - ε^-x) ", 2},
    {u"Sec", u"Sec()", u"（正割） Sec(x)= 1 / cos(x) ", 2},
    {u"Csc", u"Csc()", u"（余割） Csc(x)= 1 / sin(x) ", 2},
    {u"Asec", u"Asec()", u"（反正割） Asec(x)= Acos(1 / x) ", 6},
    {u"Acsc", u"Acsc()", u"（反余割） Acsc(x)= Asin(1 / x) ", 6},
    {u"E", u"E", u"  科学记数 E ,例如: 612345000 = 6.12345E+8       -6.12345E-8 = -0.0000000612", 0},
    {u"科学记数", u"",
     u"  将计算结果从[浮点数]变化为[科学记数]。例如: 612345000 = 6.12345E+8       -0.0000000612345 = -6.12345E-8 ",
     0},
    {u"R", u" R ", u"", 7}, {u"S", u" S ", u"", 7}, {u"T", u" T ", u"", 7},
    {u"U", u" U ", u"", 7}, {u"V", u" V ", u"", 7}, {u"W", u" W ", u"", 7},
    {u"X", u" X ", u"", 7}, {u"Y", u" Y ", u"", 7}, {u"Z", u" Z ", u"", 7},
    {u"随机数", u"", u" {随机数} 是随机产生的位于 0 - 1 之间的小数。", 0},
}};
static_assert(按钮表.size() == 60);

const 按钮项* 按钮(int n) {
    return (n >= 1 && n <= 面板按钮数) ? &按钮表[static_cast<std::size_t>(n - 1)] : nullptr;
}

}  // namespace

QString 面板按钮标题(int n) {
    const auto* b = 按钮(n);
    return b ? QString::fromUtf16(b->标题) : QString();
}

QString 面板按钮文本(int n) {
    if (n == 60) return 随机数文本();
    const auto* b = 按钮(n);
    return b ? QString::fromUtf16(b->文本) : QString();
}

QString 面板按钮帮助(int n) {
    const auto* b = 按钮(n);
    if (!b) return QString();
    QString h = QString::fromUtf16(b->帮助);
    switch (b->附加) {
    case 1: h += 运算顺序; break;
    case 2: h += QStringLiteral("请注意函数输出结果最多为28位有效数字。"); break;
    case 3: h += QStringLiteral("请注意函数输出结果最多为15位有效数字。"); break;
    case 4: h += QStringLiteral("请注意三角函数输出结果最多为28位有效数字。"); break;
    case 5: h += QStringLiteral("  加减乘除等运算后==>29位有效数字；"); break;
    case 6: h += QStringLiteral("  反三角函数、对数函数等运算后==>15位有效数字。"); break;
    case 7: h = 内存变量提示; break;
    default: break;
    }
    return h;
}

插入结果 插入文本(const QString& 文本, int 光标, int 选择长度, const QString& 插入) {
    if (光标 <= 0 && 文本.isEmpty()) return {插入, txt::len(插入)};
    const int n = txt::len(文本);
    const int 起 = std::clamp(光标, 0, n);
    const int 止 = std::clamp(起 + std::max(选择长度, 0), 起, n);
    return {txt::left(文本, 起) + 插入 + txt::mid(文本, 止 + 1), 起 + txt::len(插入)};
}

插入结果 面板插入(const QString& 文本, int 光标, int 选择长度, int n) {
    if (n == 50 || !按钮(n)) return {文本, std::clamp(光标, 0, txt::len(文本))};
    return 插入文本(文本, 光标, 选择长度, 面板按钮文本(n));
}

QString 科学计数按钮(const QString& 结果文本) {
    // The result line carries alignment blanks, the "_" fill and maybe the
    // mark "约数"; only the number goes to the conversion.
    QString s = 结果文本;
    s.remove(QStringLiteral("约数"));
    s.remove(u'_');
    s = txt::trim(s);
    if (s.endsWith(u'.')) s.chop(1);
    const QString r = 科学计数形式(数值(s));
    清除计算状态();
    return r;
}

QString 随机数文本() {
    // Three draws, each from a freshly seeded source; each draw's text has
    // seven decimals, as a single-precision draw would show.
    auto 一次 = [] {
        QRandomGenerator g = QRandomGenerator::securelySeeded();
        return QString::number(g.generateDouble(), 'f', 7);
    };
    const QString a = 一次(), b = 一次(), c = 一次();
    return txt::trim(a) + txt::mid(b, 3, 7) + txt::mid(c, 3, 6);
}

// ---------------------------------------------------------------------------
// Memory variables.

namespace {
数值& 内存变量(int k) {
    return 变量状态.字母变量[static_cast<std::size_t>(字母序号(内存变量字母[static_cast<std::size_t>(k)]))];
}
}  // namespace

void 内存变量全为一() {
    for (int k = 0; k < 9; ++k) 内存变量(k) = 数值(1);
}

void 内存变量一至九() {
    for (int k = 0; k < 9; ++k) 内存变量(k) = 数值(k + 1);
}

QStringList 内存变量文本() {
    QStringList r;
    for (int k = 0; k < 9; ++k) r << 内存变量(k).文本();
    return r;
}

QStringList 应用内存变量(const QStringList& 九个文本) {
    清除计算状态();
    for (int k = 0; k < 9 && k < 九个文本.size(); ++k)
        内存变量(k) = 数值(规整高精度数字文本(九个文本[k]));
    return 内存变量文本();
}

void 计算器初始化() {
    计算状态.角度单位 = 60;
    内存变量一至九();
    计算状态.错误数 = 0;
    计算状态.提示数 = 0;
    计算状态.精度损失数 = 0;
}
