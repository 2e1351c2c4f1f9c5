// The summation, array and conditional statements. Each takes one
// statement in upper case without blanks and fails in one way: one error
// with the handler's literal (on top of whatever the evaluator reported),
// and false.
#include "script/script.h"

#include "expression/evaluator.h"
#include "numeric/decimal.h"
#include "numeric/guarded.h"
#include "numeric/text.h"
#include "script/script_detail.h"
#include "expression/state.h"
#include "numeric/state.h"
#include "script/state.h"

#include <QStringList>
#include <array>

using namespace script_detail;

namespace {

bool 失败(const char16_t* 文字) {
    报告错误(QString::fromUtf16(文字));
    return false;
}

constexpr char16_t 累计失败[] = u"计算累计赋值算式时----出现错误了！";
constexpr char16_t 数组失败[] = u"计算数组赋值算式时----出现错误了！";
constexpr char16_t 条件失败[] = u"计算条件判断算式时----出现错误了！";

// Evaluates a bound of the summation and rounds it half-even to an integer.
bool 求界(const QString& 文本, std::int32_t& 界) {
    const QString r = 表达式计算(文本);
    if (计算状态.错误数 > 0) return false;
    return 取整数(Hvt数转数(数值(r)).文本(), 界);
}

}  // namespace

bool 累计赋值算式(const QString& 语句) {
    const QString s = 去末分号(语句);
    const int 等号 = txt::instr(s, QStringLiteral("="));
    if (等号 < 2) return 失败(累计失败);
    const QChar 名 = 目标字母(txt::left(s, 等号 - 1));
    const int 符号 = txt::instr(s, QString(QChar(0x03A3)));  // Σ
    if (符号 < 3) return 失败(累计失败);
    // Nothing may follow group 3: a fourth group or stray text is an error.
    if (括号组末位(s, 符号) < 1 || txt::len(s) != 脚本状态.括号组位置[5]) return 失败(累计失败);
    const QString 起文本 = 括号组文本(s, 1);
    const QString 止文本 = 括号组文本(s, 2);
    const QString 式 = 括号组文本(s, 3);

    std::int32_t 起 = 0, 止 = 0;
    if (!求界(起文本, 起)) return 失败(累计失败);
    if (!求界(止文本, 止)) return 失败(累计失败);
    if (起 > 止) std::swap(起, 止);
    if (起 < 1) 起 = 1;
    if (止 < 1) 止 = 1;

    constexpr std::array<char16_t, 3> 字母{u'U', u'V', u'W'};
    const std::array<const 数组变量*, 3> 数组{&脚本状态.数组U, &脚本状态.数组V, &脚本状态.数组W};
    std::array<数值, 3> 备份;
    for (std::size_t k = 0; k < 3; ++k)
        备份[k] = 变量状态.字母变量[static_cast<std::size_t>(字母序号(字母[k]))];

    数值 和 = 数值(Decimal96());
    // i is 64-bit so that a range ending at the 32-bit maximum terminates.
    for (std::int64_t i = 起; i <= 止; ++i) {
        for (std::size_t k = 0; k < 3; ++k) {
            const 数组变量& a = *数组[k];
            数值& 变量 = 变量状态.字母变量[static_cast<std::size_t>(字母序号(字母[k]))];
            if (i > a.个数 || i >= a.元素.size()) 变量 = 数值(0);
            else 变量 = 数值(a.元素.at(static_cast<qsizetype>(i)));
        }
        和 = 求两数和(和, 数值(表达式计算(式)));
        if (计算状态.错误数 > 0) return 失败(累计失败);  // U, V, W keep this round's values
    }
    for (std::size_t k = 0; k < 3; ++k)
        变量状态.字母变量[static_cast<std::size_t>(字母序号(字母[k]))] = 备份[k];
    存入变量(名, 和);
    return true;
}

bool 数组赋值算式(const QString& 语句) {
    const QString s = 去末分号(语句);
    const int 逗号 = txt::instr(s, QStringLiteral(","));
    const int 等号 = txt::instr(s, QStringLiteral("="));
    if (逗号 < 4 || 等号 < 2) return 失败(数组失败);
    const QChar 首 = txt::at(s, 1);
    数组变量& 数组 = 首 == u'U' ? 脚本状态.数组U : 首 == u'V' ? 脚本状态.数组V : 脚本状态.数组W;

    int 起 = 0, 止 = 0;
    数组列表范围(s, 等号, 起, 止);
    if (起 > 止) return 失败(数组失败);
    QString 列表 = txt::mid(s, 起, 止 - 起 + 1);
    if (!列表.endsWith(u',')) 列表 += u',';
    QStringList 项 = 列表.split(u',');
    项.removeLast();
    const qsizetype n = 项.size();
    if (n < 1 || n > 2147483647) return 失败(数组失败);

    数组.个数 = static_cast<std::int32_t>(n);
    数组.列表文本 = 列表;
    数组.元素 = QStringList();
    数组.元素.reserve(n + 1);
    数组.元素.append(QString());  // slot 0 stays unused
    // Items are numbers, not expressions: converted, never evaluated.
    for (const QString& x : std::as_const(项)) 数组.元素.append(Hvt数转数(数值(x)).文本());
    return true;
}

bool 条件判断算式(const QString& 语句) {
    const QString s = 去末分号(语句);
    if (txt::left(s, 2) != u"IF") return 失败(条件失败);
    if (括号组末位(s, 1) < 1 || txt::len(s) != 脚本状态.括号组位置[5]) return 失败(条件失败);
    const QString 条件 = 括号组文本(s, 1);
    const QString 则 = 括号组文本(s, 2);
    const QString 否则 = 括号组文本(s, 3);

    const 数值 值 = Hvt数转数(数值(表达式计算(条件)));
    if (计算状态.错误数 > 0) return 失败(条件失败);
    // No comparison operators: a condition holds when its number is positive.
    // A short then-branch is an error, a short else-branch means "no else".
    if (数值符号(值) > 0) {
        if (txt::len(则) < 3) return 失败(条件失败);
        赋值算式(则);
        return true;
    }
    if (txt::len(否则) < 3) return true;
    赋值算式(否则);
    return true;
}
