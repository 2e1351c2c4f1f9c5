// The canonical form of a script, written by the formula editor when a
// formula is saved. Each statement is rewritten by its kind, its
// expressions through 表达式规整; a statement that cannot be accepted is
// replaced by its rejection text, which shows the author the expected shape
// and makes a run of that script fail.
#include "script/script.h"

#include "expression/normalise.h"
#include "expression/validate.h"
#include "numeric/text.h"
#include "script/script_detail.h"
#include "script/state.h"

#include <QStringList>

using namespace script_detail;

namespace {

// The script alphabet: the expression characters plus the statement marks
// ∫ Σ σ ; , → =. Everything else (blanks of any width, text labels,
// comparison signs) is dropped when a script is saved.
const QString 脚本字符集 = QStringLiteral(
    "-0.1234567Ee89()\u03A0\u0395\u03C0\u03B5!%\u2030^*/\\+-"
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
    "\u222B\u03A3\u03C3;,\u2192=");

const QString 赋值样式 = QStringLiteral("请修改F=0");
const QString 输出样式 = QStringLiteral("请修改\u2192F=0");
const QString 数组样式 = QStringLiteral("请修改U=(1,3,5)");
const QString 累计样式 = QStringLiteral("请修改F=\u03A3(0)(5)(U)");
const QString 条件样式 = QStringLiteral("请修改If(1)(F=1)(F=0)");
const QString 积分赋值样式 = QStringLiteral("积分赋值算式的格式应为 F=\u222B(0)(2)(X)(100)");
const QString 积分项样式 = QStringLiteral("积分算式的格式应为 \u222B(0)(2)(X)(100)");

QString 式(const QString& 文本) { return 表达式规整(文本); }

}  // namespace

QString 规整赋值算式(const QString& 语句) {
    const QString s = txt::trim(语句);
    if (s.isEmpty()) return 赋值样式;
    const int 等号 = txt::instr(s, QStringLiteral("="));
    if (等号 <= 1 || 等号 >= 8) return 赋值样式;
    const QString 右 = txt::mid(s, 等号 + 1);
    if (txt::trim(右).isEmpty()) return 赋值样式;
    return QString(目标字母(txt::left(s, 等号 - 1))) + QStringLiteral(" = ") + 式(右);
}

QString 规整输出算式(const QString& 语句) {
    const QString s = txt::trim(语句);
    if (txt::at(s, 1) != QChar(0x2192)) return 输出样式;
    const int 等号 = txt::instr(s, QStringLiteral("="), 2);
    if (等号 < 3 || 等号 >= 14) return 输出样式;
    const QString 右 = txt::mid(s, 等号 + 1);
    if (txt::trim(右).isEmpty()) return 输出样式;
    QString 标签 = txt::trim(txt::mid(s, 2, 等号 - 2));
    if (标签.isEmpty()) 标签 = QStringLiteral("F");
    return QString(QChar(0x2192)) + 标签 + QStringLiteral(" = ") + 式(右);
}

QString 规整数组算式(const QString& 语句) {
    const QString s = txt::trim(语句);
    const int 逗号 = txt::instr(s, QStringLiteral(","));
    if (逗号 < 4) return 数组样式;
    const int 等号 = txt::instr(s, QStringLiteral("="), 2);
    if (等号 < 2 || 等号 > 12) return 数组样式;
    int 起 = 0, 止 = 0;
    数组列表范围(s, 等号, 起, 止);
    if (起 > 止) return 数组样式;
    QString 列表 = txt::mid(s, 起, 止 - 起 + 1);
    if (!列表.endsWith(u',')) 列表 += u',';
    QStringList 项 = 列表.split(u',');
    项.removeLast();
    const QChar 首 = txt::at(s, 1);
    const QChar 名 = (首 == u'U' || 首 == u'V') ? 首 : QChar(u'W');
    QString r = QString(名) + QStringLiteral(" = (");
    for (const QString& x : std::as_const(项)) r += 式(x) + u',';
    return r + u')';
}

QString 规整累计算式(const QString& 语句) {
    const QString s = txt::trim(语句);
    if (s.isEmpty()) return 累计样式;
    const int 符号 = txt::instr(s, QString(QChar(0x03A3)));  // Σ
    if (符号 < 3 || 符号 > 5) return 累计样式;
    if (!分析括号组(s, 符号 + 1)) return 累计样式;
    const QString g1 = 括号组文本(s, 1), g2 = 括号组文本(s, 2), g3 = 括号组文本(s, 3);
    return QString(目标字母(txt::left(s, 符号 - 2))) + QStringLiteral(" = \u03A3(") + 式(g1)
           + QStringLiteral(")(") + 式(g2) + QStringLiteral(")(") + 式(g3) + u')';
}

QString 规整条件算式(const QString& 语句) {
    const QString s = txt::trim(语句);
    if (s.isEmpty()) return 条件样式;
    const int 位 = txt::instr(s, QStringLiteral("IF"));
    if (位 < 1 || 位 > 2) return 条件样式;
    if (!分析括号组(s, 位 + 2)) return 条件样式;
    const QString g1 = 括号组文本(s, 1), g2 = 括号组文本(s, 2), g3 = 括号组文本(s, 3);
    return QStringLiteral("If(") + 式(g1) + QStringLiteral(")(") + 规整赋值算式(g2)
           + QStringLiteral(")(") + 规整赋值算式(g3) + u')';
}

QString 规整积分算式(const QString& 积分项) {
    const QString t = txt::trim(积分项);
    const int p = txt::instr(t, QString(QChar(0x222B)));  // ∫
    if (p < 1) return 积分项样式;
    const int 末位 = 括号组末位(t, p);
    if (末位 < 7) return 积分项样式;
    const bool 有条数 = 脚本状态.括号组位置[7] > 脚本状态.括号组位置[6] && 脚本状态.括号组位置[6] >= 8;
    const QString g1 = 括号组文本(t, 1), g2 = 括号组文本(t, 2), g3 = 括号组文本(t, 3);
    const QString g4 = 有条数 ? 括号组文本(t, 4) : QString();
    // A term without a strip count is saved with 100 strips; a run of a
    // term that has none takes 1000.
    const QString N = 有条数 ? 式(g4) : QStringLiteral("100");
    return QString(QChar(0x222B)) + u'(' + 式(g1) + QStringLiteral(")(") + 式(g2)
           + QStringLiteral(")(") + 式(g3) + QStringLiteral(")(") + N + u')';
}

QString 规整积分赋值算式(const QString& 语句) {
    const QString s = txt::trim(语句);
    const int p = txt::instr(s, QString(QChar(0x222B)));
    if (p < 1) return 积分赋值样式;
    const QChar 名 = p <= 2 ? QChar(u'F') : 目标字母(txt::left(s, p - 2));
    return QString(名) + QStringLiteral(" = ") + 规整积分算式(txt::mid(s, p));
}

QString 规整算式(const QString& 脚本) {
    QString s = 脚本;
    s.remove(u' ');
    if (s.isEmpty()) return QStringLiteral("0");
    QString 留;
    留.reserve(s.size());
    for (const QChar c : std::as_const(s))
        if (脚本字符集.contains(c)) 留 += c;
    if (留.isEmpty()) return QStringLiteral("0");
    留 = 留.toUpper();
    if (!留.endsWith(u';')) 留 += u';';
    QStringList 语句表 = 留.split(u';');
    语句表.removeLast();
    QString r;
    for (const QString& 句 : std::as_const(语句表)) {
        QString 规;
        switch (语句种类(句)) {
        case 1: 规 = 规整条件算式(句); break;
        case 2: 规 = 规整数组算式(句); break;
        case 3: 规 = 规整累计算式(句); break;
        case 4: 规 = 规整积分赋值算式(句); break;
        case 5: 规 = 规整输出算式(句); break;
        case 6: 规 = 规整赋值算式(句); break;
        default: 规 = 表达式规整(句); break;
        }
        r += 规 + QStringLiteral(";  ");
    }
    return r;
}
