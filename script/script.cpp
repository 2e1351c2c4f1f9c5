// The script runner, the two plain statement kinds (assignment and arrow
// output), the bracket-group analysis that the other kinds share, and the
// small helpers of script_detail.h.
#include "script/script.h"

#include "expression/evaluator.h"
#include "numeric/decimal.h"
#include "numeric/guarded.h"
#include "numeric/rounding.h"
#include "numeric/text.h"
#include "script/script_detail.h"
#include "expression/state.h"
#include "numeric/state.h"
#include "script/state.h"

#include <QStringList>
#include <cmath>
#include <limits>

namespace script_detail {

QString 去末分号(const QString& 语句) {
    QString s = 语句;
    if (s.endsWith(u';')) s.chop(1);
    return txt::trim(s);
}

QChar 目标字母(const QString& 左侧) {
    const QString 名 = 取字母串(左侧, 1);
    if (名.isEmpty()) return u'F';
    const QChar c = 名.at(0);
    return 字母序号(c.unicode()) < 0 ? QChar(u'F') : c;
}

void 存入变量(QChar 名, const 数值& 值) {
    int k = 字母序号(名.unicode());
    if (k < 0) k = 字母序号(u'F');
    变量状态.字母变量[static_cast<std::size_t>(k)] = 值;
}

QString 括号组文本(const QString& 文本, int 组) {
    if (组 < 1 || 组 > 4) return QString();
    const int 开 = 脚本状态.括号组位置[static_cast<std::size_t>(2 * 组 - 2)];
    const int 闭 = 脚本状态.括号组位置[static_cast<std::size_t>(2 * 组 - 1)];
    if (开 < 1 || 闭 <= 开 + 1) return QString();
    return txt::mid(文本, 开 + 1, 闭 - 开 - 1);
}

int 数值符号(const 数值& 值) {
    const QString s = txt::trim(值.文本());
    bool 负 = false, 非零 = false;
    for (const QChar c : s) {
        const char16_t u = c.unicode();
        if (u == u'-') 负 = true;
        else if (u == u'E' || u == u'e') break;
        else if (u >= u'1' && u <= u'9') 非零 = true;
    }
    if (!非零) return 0;
    return 负 ? -1 : 1;
}

bool 取整数(const QString& 数字文本, std::int32_t& 结果) {
    Decimal96 d;
    if (Decimal96::fromText(txt::trim(数字文本), d) == Decimal96::Status::Ok) {
        const Decimal96 r = d.rounded(0, Decimal96::Rounding::HalfEven);
        // After rounding to scale 0 the value is the mantissa; 32-bit range
        // means hi and mid are 0 and lo fits the sign's limit.
        if (r.hi() != 0 || r.mid() != 0) return false;
        const std::uint32_t m = r.lo();
        if (r.negative()) {
            if (m > 2147483648u) return false;
            结果 = static_cast<std::int32_t>(-static_cast<std::int64_t>(m));
        } else {
            if (m > 2147483647u) return false;
            结果 = static_cast<std::int32_t>(m);
        }
        return true;
    }
    double x = 0;
    if (!文本转双精度(txt::trim(数字文本), x) || !std::isfinite(x)) return false;
    const double r = std::nearbyint(x);  // default rounding mode: ties to even
    if (r < -2147483648.0 || r > 2147483647.0) return false;
    结果 = static_cast<std::int32_t>(r);
    return true;
}

double 宽松读数(const QString& 文本) {
    const int n = txt::len(文本);
    int i = 1;
    while (i <= n && txt::at(文本, i) == u' ') ++i;
    const int 起 = i;
    if (i <= n && (txt::at(文本, i) == u'+' || txt::at(文本, i) == u'-')) ++i;
    int 位数 = 0;
    while (i <= n && txt::isAsciiDigit(txt::at(文本, i))) { ++i; ++位数; }
    if (i <= n && txt::at(文本, i) == u'.') {
        ++i;
        while (i <= n && txt::isAsciiDigit(txt::at(文本, i))) { ++i; ++位数; }
    }
    if (位数 == 0) return 0.0;
    int 止 = i;  // one past the mantissa
    if (i <= n && (txt::at(文本, i) == u'E' || txt::at(文本, i) == u'e')) {
        int j = i + 1;
        if (j <= n && (txt::at(文本, j) == u'+' || txt::at(文本, j) == u'-')) ++j;
        if (j <= n && txt::isAsciiDigit(txt::at(文本, j))) {
            while (j <= n && txt::isAsciiDigit(txt::at(文本, j))) ++j;
            止 = j;
        }
    }
    const QString 数 = txt::mid(文本, 起, 止 - 起);
    double x = 0;
    if (文本转双精度(数, x)) return x;
    // The grammar above always reads; a failure is an exponent out of the
    // double's range: huge gives an infinity, tiny gives 0.
    const int e = 数.indexOf(u'E', 0, Qt::CaseInsensitive);
    const bool 负指数 = e >= 0 && e + 1 < 数.size() && 数.at(e + 1) == u'-';
    if (负指数) return 0.0;
    return 数.startsWith(u'-') ? -std::numeric_limits<double>::infinity()
                               : std::numeric_limits<double>::infinity();
}

void 数组列表范围(const QString& 语句, int 等号, int& 起, int& 止) {
    const int 开 = txt::instr(语句, QStringLiteral("("), 等号 < 1 ? 1 : 等号);
    if (开 > 等号) {
        起 = 开 + 1;
        const int 闭 = 配对括号位置(语句, 开);
        止 = 闭 > 0 ? 闭 - 1 : txt::len(语句);
    } else {
        起 = 等号 + 1;
        止 = txt::len(语句);
    }
}

}  // namespace script_detail

using namespace script_detail;

// ------------------------------------------------------------ recognition

int 语句种类(const QString& 语句) {
    if (语句.contains(u"IF")) return 1;
    if (语句.contains(u',')) return 2;
    if (语句.contains(QChar(0x03A3))) return 3;  // Σ
    if (语句.contains(QChar(0x222B))) return 4;  // ∫
    if (语句.contains(QChar(0x2192))) return 5;  // →
    if (语句.contains(u'=')) return 6;
    return 7;
}

// ------------------------------------------------------------ the runner

QString 运行算式(const QString& 脚本) {
    QString s = 脚本;
    s.remove(u' ');
    if (s.isEmpty()) return QStringLiteral("0");
    s = s.toUpper();
    if (!s.endsWith(u';')) s += u';';
    QStringList 语句表 = s.split(u';');
    语句表.removeLast();  // the piece behind the closing ";"

    脚本状态.脚本输出.clear();
    for (const QString& 句 : std::as_const(语句表)) {
        QString 结果;
        bool 有输出 = false;
        switch (语句种类(句)) {
        case 1: 条件判断算式(句); break;
        case 2: 数组赋值算式(句); break;
        case 3: 累计赋值算式(句); break;
        case 4: 积分赋值算式(句); break;
        case 5: 结果 = 常规输出算式(句); 有输出 = true; break;
        case 6: 赋值算式(句); break;
        default: 结果 = 表达式计算(句); 有输出 = true; break;
        }
        if (!有输出) continue;
        if (txt::trim(脚本状态.脚本输出).isEmpty()) 脚本状态.脚本输出 = 结果;
        else 脚本状态.脚本输出 += QStringLiteral("; ") + 结果;
    }
    return 脚本状态.脚本输出;
}

// ------------------------------------------------------ plain statements

bool 赋值算式(const QString& 语句) {
    QString s = 语句;
    if (s.endsWith(u';')) s.chop(1);
    const int 等号 = txt::instr(s, QStringLiteral("="));
    if (等号 < 1) return false;
    const QChar 名 = 目标字母(txt::left(s, 等号 - 1));
    const 数值 值 = Hvt数转数(数值(表达式计算(txt::mid(s, 等号 + 1))));
    if (计算状态.错误数 >= 1) return false;
    存入变量(名, 值);
    return true;
}

QString 常规输出算式(const QString& 语句) {
    static const QString 失败 = QStringLiteral("计算常规输出算式时---出错了！");
    QString s = 语句;
    if (s.endsWith(u';')) s.chop(1);
    s = txt::trim(s);
    if (txt::at(s, 1) != QChar(0x2192)) return 失败;  // →
    const int 等号 = txt::instr(s, QStringLiteral("="));
    QString 标签;
    if (等号 > 0) 标签 = txt::trim(txt::mid(s, 2, 等号 - 2));
    // Without "=" the whole text, arrow included, goes to the evaluator,
    // which refuses it.
    const 数值 值 = Hvt数转数(数值(表达式计算(txt::mid(s, 等号 + 1))));
    if (计算状态.错误数 > 0) return 失败;
    QString 文本 = txt::trim(四舍五入(值, 计算状态.输出小数位数).文本());
    if (计算状态.错误数 > 0) return 失败;
    if (文本.startsWith(u'.')) 文本.prepend(u'0');
    else if (文本.startsWith(QStringLiteral("-."))) 文本 = QStringLiteral("-0") + txt::mid(文本, 2);
    return 标签.isEmpty() ? 文本 : 标签 + QStringLiteral(" = ") + 文本;
}

// -------------------------------------------------------- bracket groups

int 配对括号位置(const QString& 文本, int 开括号位置) {
    if (开括号位置 < 1) return 0;
    const int n = txt::len(文本);
    int 深度 = 1;
    for (int i = 开括号位置 + 1; i <= n; ++i) {
        const QChar c = txt::at(文本, i);
        if (c == u'(') ++深度;
        else if (c == u')') {
            --深度;
            if (深度 < 1) return i;
        }
    }
    return 0;
}

bool 分析括号组(const QString& 文本, int 起点) {
    if (起点 < 1) 起点 = 1;
    auto& g = 脚本状态.括号组位置;
    g.fill(0);
    const QString 开 = QStringLiteral("(");
    // Each search runs only when the position before it was found.
    g[0] = txt::instr(文本, 开, 起点);
    if (g[0] >= 起点) g[1] = 配对括号位置(文本, g[0]);
    if (g[1] >= 起点) g[2] = txt::instr(文本, 开, g[1] + 1);
    if (g[2] >= 起点) g[3] = 配对括号位置(文本, g[2]);
    if (g[3] >= 起点) g[4] = txt::instr(文本, 开, g[3] + 1);
    if (g[4] >= 起点) g[5] = 配对括号位置(文本, g[4]);
    // The fourth group (the strip count of an integral) is optional.
    if (g[5] > g[4] && g[4] >= 6) {
        const int 开4 = txt::instr(文本, 开, g[5] + 1);
        const int 闭4 = 开4 > 0 ? 配对括号位置(文本, 开4) : 0;
        const int 首闭 = txt::instr(文本, QStringLiteral(")"), g[5] + 1);
        if (开4 >= 8 && 闭4 > 开4 && 首闭 > 开4) {
            g[6] = 开4;
            g[7] = 闭4;
        }
    }
    return g[0] >= 起点 && g[0] < g[1] && g[1] < g[2] && g[2] < g[3] && g[3] < g[4] && g[4] < g[5];
}

int 括号组末位(const QString& 文本, int 起点) {
    if (!分析括号组(文本, 起点)) return 0;
    return std::max(脚本状态.括号组位置[5], 脚本状态.括号组位置[7]);
}
