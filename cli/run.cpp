// orvane-cli run: runs a formula script as the calculation atlas does after
// reading the parameters of a formula (reset, parameters into the letter
// variables and the lists, run), or prints the canonical text that the
// formula editor would save.
#include "cli/commands.h"

#include "expression/normalise.h"
#include "numeric/decimal.h"
#include "numeric/guarded.h"
#include "numeric/text.h"
#include "script/script.h"
#include "numeric/interaction.h"
#include "shell/startup.h"
#include "shell/state.h"

#include <QFile>
#include <QTextStream>
#include <cstdio>

namespace {

const char* const 帮助文本 =
    "用法 usage: orvane-cli run [OPTIONS] SCRIPT\n"
    "       orvane-cli run --canonical SCRIPT\n"
    "\n"
    "像计算图册的[综合计算]按钮一样运行一个公式脚本：先清除计算状态，装入参数，再运行。\n"
    "Runs a formula script as the calculation atlas's run button does: the calculation state\n"
    "is reset, the parameters are loaded into the letter variables and the lists, and the\n"
    "statements run from left to right. Statements are separated by \";\":\n"
    "  F=X+1              赋值 assignment          →面积=A*B/2     箭头输出 arrow output\n"
    "  U=(1,3,5)          数组 array U, V or W     X+1              输出 plain output\n"
    "  F=Σ(1)(N)(U)       累计 sum over the lists  If(X)(F=1)(F=0)  条件 condition (X > 0)\n"
    "  F=∫(0)(2)(X^2)(100)  定积分 integral over X, midpoint rule, N strips (default 1000)\n"
    "SCRIPT 为 - 时从标准输入读取 (SCRIPT \"-\" reads standard input).\n"
    "\n"
    "输出 output:\n"
    "  stdout  脚本输出 (the script output: outputs joined by \"; \"); with --canonical the\n"
    "          canonical text the formula editor saves (rejected statements marked).\n"
    "          失败时为首个错误 (on failure: the first error message).\n"
    "  stderr  失败时的全部错误信息 (on failure: every error message), and every message the\n"
    "          logic would show in a box. The integral's time prompt is answered No (go on).\n"
    "  exit    0 成功 success; 1 计算失败 the script failed; 2 参数错误 bad options.\n"
    "\n"
    "选项 options:\n"
    "  --decimals N    箭头输出的小数位数 0-28，默认 8 (decimals of arrow outputs, default 8).\n"
    "  --angle U       角度单位 angle unit: 60 度分秒 (packed DDD.MMSS, default),\n"
    "                  100 百分度 (decimal degrees), 3 弧度 (radians).\n"
    "  --precision P   0 关闭高精度，全部用双精度 (0: high precision off, all in double);\n"
    "                  1 开启 (on, default).\n"
    "  --set X=1.5     给字母变量赋值，可重复 (a letter variable A-Z without O; repeatable).\n"
    "                  像图册参数一样按双精度读取 (read as the atlas reads a parameter: a double).\n"
    "  --list U=1,2,3  给数组 U、V 或 W 赋值 (fill the list U, V or W; repeatable).\n"
    "  --canonical     只输出规整后的脚本，不运行 (print the canonical text, do not run).\n"
    "  -h, --help      本说明 (this text).\n"
    "\n"
    "例 examples:\n"
    "  orvane-cli run --set A=5 --set B=6 --set C=7 \"S=(A+B+C)/2;→面积=(S*(S-A)*(S-B)*(S-C))^0.5\"\n"
    "  orvane-cli run --list U=12.3,45.6,7.8 \"L=Σ(1)(3)(U);→总长=L\"\n"
    "  orvane-cli run --angle 3 \"F=∫(0)(Π)(SIN(X))(1000);→I=F\"\n"
    "  orvane-cli run --canonical \"f=x+1;u=(1,2)\"\n";

int 参数错误(const QString& 消息) {
    QTextStream err(stderr);
    err << "run: " << 消息 << "\n" << "orvane-cli run --help 查看用法 (see usage).\n";
    return 2;
}

struct 运行选项 {
    int 小数位数 = 8;
    int 角度单位 = 60;
    bool 高精度 = true;
    bool 规整 = false;
    QList<QPair<QChar, double>> 变量;
    QList<QPair<QChar, QString>> 列表;
    QString 脚本;
    bool 有脚本 = false;
};

// A list box as the atlas reads it: cleaned to "a, b, c, ", then split; the
// count is one less than the pieces, each piece converted by Hvt数转数.
void 装入列表(数组变量& a, const QString& 文本) {
    QString s = txt::trim(规整数字列表(文本));
    if (!s.endsWith(u',')) s += u',';
    QStringList 项 = s.split(u',');
    项.removeLast();
    a.个数 = static_cast<std::int32_t>(项.size());
    a.列表文本 = s;
    a.元素 = QStringList{QString()};
    for (const QString& x : std::as_const(项)) a.元素 << Hvt数转数(数值(x)).文本();
}

int 运行脚本命令(const QStringList& args) {
    运行选项 选;
    for (int i = 0; i < args.size(); ++i) {
        const QString a = args[i];
        QString 值;
        bool 有值 = false;
        auto 取值 = [&](const QString& 名) { return cli::取选项值(args, i, 名, 值, 有值); };
        if (a == u"-h" || a == u"--help") {
            QTextStream(stdout) << QString::fromUtf8(帮助文本);
            return 0;
        } else if (a == u"--canonical") {
            选.规整 = true;
        } else if (取值(QStringLiteral("--decimals"))) {
            bool ok = false;
            const int n = 值.toInt(&ok);
            if (!有值 || !ok || n < 0 || n > 28) return 参数错误(QStringLiteral("--decimals 需要 0-28 的整数 (needs an integer 0-28)"));
            选.小数位数 = n;
        } else if (取值(QStringLiteral("--angle"))) {
            bool ok = false;
            const int u = 值.toInt(&ok);
            if (!有值 || !ok || (u != 60 && u != 100 && u != 3))
                return 参数错误(QStringLiteral("--angle 只能是 60、100 或 3 (must be 60, 100 or 3)"));
            选.角度单位 = u;
        } else if (取值(QStringLiteral("--precision"))) {
            if (!有值 || (值 != u"0" && 值 != u"1")) return 参数错误(QStringLiteral("--precision 只能是 0 或 1 (must be 0 or 1)"));
            选.高精度 = 值 == u"1";
        } else if (取值(QStringLiteral("--set"))) {
            const qsizetype k = 值.indexOf(u'=');
            const QString 名 = 值.left(k).trimmed().toUpper();
            double v = 0;
            if (!有值 || k < 0 || 名.size() != 1 || 字母序号(名.at(0).unicode()) < 0)
                return 参数错误(QStringLiteral("--set 需要 字母=数值，字母为 A-Z（不含 O） (needs LETTER=NUMBER, a letter A-Z without O)"));
            if (!文本转双精度(值.mid(k + 1), v))
                return 参数错误(QStringLiteral("--set 的值不是数字 (the value is not a number): ") + 值.mid(k + 1));
            选.变量.append({名.at(0), v});
        } else if (取值(QStringLiteral("--list"))) {
            const qsizetype k = 值.indexOf(u'=');
            const QString 名 = 值.left(k).trimmed().toUpper();
            if (!有值 || k < 0 || (名 != u"U" && 名 != u"V" && 名 != u"W"))
                return 参数错误(QStringLiteral("--list 需要 U=1,2,3（U、V 或 W） (needs U=1,2,3 with U, V or W)"));
            选.列表.append({名.at(0), 值.mid(k + 1)});
        } else if (a.startsWith(u"--") ) {
            return 参数错误(QStringLiteral("未知选项 (unknown option): ") + a);
        } else {
            if (选.有脚本) return 参数错误(QStringLiteral("只能给一个脚本；脚本内用 ; 分隔语句 (one SCRIPT only; separate statements with \";\")"));
            选.有脚本 = true;
            选.脚本 = a;
        }
    }
    if (!选.有脚本) return 参数错误(QStringLiteral("缺少脚本 (SCRIPT missing)"));
    if (选.脚本 == u"-") {
        QFile in;
        if (!in.open(stdin, QIODevice::ReadOnly)) return 参数错误(QStringLiteral("无法读取标准输入 (cannot read stdin)"));
        // One statement or more a line: each non-blank line is closed by ";"
        // unless it already is, so that line breaks never add empty statements.
        QString 全 = QString::fromUtf8(in.readAll());
        全.remove(u'\r');
        选.脚本.clear();
        for (const QString& 行 : 全.split(u'\n')) {
            const QString t = txt::trim(行);
            if (t.isEmpty()) continue;
            选.脚本 += t.endsWith(u';') ? t : t + u';';
        }
    }

    cli::标准错误交互 交互实现{QStringLiteral("\n→ 否：继续计算 (answered No: the loop goes on)")};
    交互接口* 旧 = 安装交互(&交互实现);
    struct 恢复 { 交互接口* p; ~恢复() { 安装交互(p); } } 恢复交互{旧};

    初始化字母变量();
    设置输出格式();
    QTextStream out(stdout), err(stderr);

    if (选.规整) {
        out << 规整算式(选.脚本) << "\n";
        if (计算状态.错误数 > 0) err << 计算状态.错误记录;
        return 0;
    }

    清除计算状态();
    for (const auto& [名, v] : std::as_const(选.变量)) {
        // As the atlas loads a parameter: the double made a scaled decimal.
        Decimal96 d;
        变量状态.字母变量[static_cast<std::size_t>(字母序号(名.unicode()))] =
            Decimal96::fromDouble(v, d) == Decimal96::Status::Ok ? 数值(d) : 数值(v);
    }
    for (const auto& [名, 文本] : std::as_const(选.列表))
        装入列表(名 == u'U' ? 脚本状态.数组U : 名 == u'V' ? 脚本状态.数组V : 脚本状态.数组W, 文本);
    设置作用域 设置({选.小数位数, 选.角度单位, 选.高精度});

    const QString 输出 = 运行算式(选.脚本);
    if (计算状态.错误数 >= 1) {
        out << 计算状态.首个错误 << "\n";
        err << "出错了，全部错误信息：\n" << QString(计算状态.错误记录).replace(u"\r\n"_qs, u"\n"_qs);
        return 1;
    }
    out << 输出 << "\n";
    if (计算状态.提示数 > 0) err << QString(计算状态.提示记录).replace(u"\r\n"_qs, u"\n"_qs);
    return 0;
}

cli::命令注册 注册{"run", "运行公式脚本 (run a formula script: assignments, outputs, lists, sums, conditions, integrals)",
                   &运行脚本命令};

}  // namespace
