// orvane-cli calc: the calculator screen's compute button without the
// screen. The expression goes through the same procedure (normalise,
// evaluate, cut, round, align); stdout gets the result line, stderr the
// status line and every message the logic would show in a box.
#include "cli/commands.h"

#include "expression/evaluator.h"
#include "shell/calculator.h"
#include "numeric/interaction.h"
#include "shell/startup.h"
#include "shell/state.h"

#include <QTextStream>
#include <cstdio>

namespace {

const char* const 帮助文本 =
    "用法 usage: orvane-cli calc [--decimals N] [--angle 60|100|3] [--memory SPEC] [--raw] [--] EXPRESSION...\n"
    "\n"
    "像计算器的[计算]按钮一样计算一个算式：先做字符规整与表达式规整，再逐步求值，\n"
    "按可达有效位数截断（标记\"约数\"），按小数位数四舍五入，在第 31 列对齐小数点并用 _ 补齐。\n"
    "Computes EXPRESSION exactly as the calculator's compute button does: the typed text is\n"
    "tidied, evaluated to 28-29 significant digits, cut to the digits it can claim (marked\n"
    "\"约数\"), rounded to N decimals, the point aligned to column 31 and the places filled with \"_\".\n"
    "Several EXPRESSION words are joined with blanks. An empty expression computes to 0.\n"
    "\n"
    "输出 output:\n"
    "  stdout  结果行 (the result line, as the calculator's result box shows it);\n"
    "          失败时为首个错误 (on failure: the first error message).\n"
    "  stderr  状态行 (the status line: notes, the digit warning, or all error messages),\n"
    "          以及算式求值时弹出的提示 (and any message the calculator would show in a box).\n"
    "  exit    0 计算成功 success; 1 计算失败 the calculation failed; 2 参数错误 bad options.\n"
    "\n"
    "选项 options:\n"
    "  --decimals N   结果的小数位数 0-28，默认 8 (decimals of the result, default 8).\n"
    "  --angle U      角度单位 angle unit: 60 度分秒.5959 (packed DDD.MMSS, default),\n"
    "                 100 百分度.9999 (decimal degrees), 3 弧度角 (radians).\n"
    "  --memory SPEC  内存变量 R S T U V W X Y Z 的取值 (the nine memory variables):\n"
    "                 1-9   R..Z = 1..9，与计算器打开时相同 (as when the calculator opens; default);\n"
    "                 1     R..Z 全部为 1 (all nine set to 1, the memory screen's first button);\n"
    "                 a;b;c...  依次赋给 R, S, T ... (up to nine values separated by \";\", read as\n"
    "                       the memory screen reads its boxes: full-width digits allowed,\n"
    "                       commas dropped, 29 digits kept, an empty value is 0).\n"
    "  --raw          输出求值器本身的结果文本（规整后的算式直接求值，未截断、未四舍五入）\n"
    "                 (print the evaluator's own result text before the digit cut and rounding).\n"
    "  --             其后均为算式 (everything after is the expression, e.g. -- -3^2).\n"
    "  -h, --help     本说明 (this text).\n"
    "\n"
    "例 examples:\n"
    "  orvane-cli calc \"1/3*3\"\n"
    "  orvane-cli calc --decimals 28 --angle 3 \"sin(1)^2+cos(1)^2\"\n"
    "  orvane-cli calc --memory \"3;4\" \"(r^2+s^2)^0.5\"\n";

int 参数错误(const QString& 消息) {
    QTextStream err(stderr);
    err << "calc: " << 消息 << "\n" << "orvane-cli calc --help 查看用法 (see usage).\n";
    return 2;
}

int 运行计算(const QStringList& args) {
    输出设置 设置;
    QString 内存 = QStringLiteral("1-9");
    bool 原始 = false;
    QStringList 算式;
    bool 选项结束 = false;

    for (int i = 0; i < args.size(); ++i) {
        QString a = args[i];
        if (选项结束) {
            算式 << a;
            continue;
        }
        QString 值;
        bool 有值 = false;
        auto 取值 = [&](const QString& 名) { return cli::取选项值(args, i, 名, 值, 有值); };
        if (a == u"--") {
            选项结束 = true;
        } else if (a == u"-h" || a == u"--help") {
            QTextStream(stdout) << QString::fromUtf8(帮助文本);
            return 0;
        } else if (a == u"--raw") {
            原始 = true;
        } else if (取值(QStringLiteral("--decimals"))) {
            bool ok = false;
            const int n = 值.toInt(&ok);
            if (!有值 || !ok || n < 0 || n > 28) return 参数错误(QStringLiteral("--decimals 需要 0-28 的整数 (needs an integer 0-28)"));
            设置.小数位数 = n;
        } else if (取值(QStringLiteral("--angle"))) {
            bool ok = false;
            const int u = 值.toInt(&ok);
            if (!有值 || !ok || (u != 60 && u != 100 && u != 3))
                return 参数错误(QStringLiteral("--angle 只能是 60、100 或 3 (must be 60, 100 or 3)"));
            设置.角度单位 = u;
        } else if (取值(QStringLiteral("--memory"))) {
            if (!有值) return 参数错误(QStringLiteral("--memory 需要取值 (needs a value)"));
            内存 = 值;
        } else if (a.startsWith(QStringLiteral("--"))) {
            return 参数错误(QStringLiteral("未知选项 unknown option: ") + a);
        } else {
            算式 << a;  // also "-3^2": a single dash never names an option here
        }
    }
    if (算式.isEmpty()) return 参数错误(QStringLiteral("缺少算式 (no expression given)"));

    cli::标准错误交互 交互实现;
    交互接口* 旧 = 安装交互(&交互实现);

    初始化字母变量();  // the variables start at decimal zero, as when the program starts
    计算器初始化();
    if (内存 == u"1") {
        内存变量全为一();
    } else if (内存 != u"1-9") {
        const QStringList 值表 = 内存.split(u';');
        if (值表.size() > 9) {
            安装交互(旧);
            return 参数错误(QStringLiteral("--memory 最多九个值 (at most nine values)"));
        }
        应用内存变量(值表);
        if (计算状态.错误数 > 0) {
            QTextStream(stderr) << 计算状态.错误记录;
            清除计算状态();
        }
    }

    const 计算显示 d = 计算器计算(算式.join(u' '), 设置);
    安装交互(旧);

    QTextStream out(stdout), err(stderr);
    if (原始 && d.成功) out << d.原始结果 << "\n";
    else out << d.结果 << "\n";
    if (!d.状态.isEmpty()) err << d.状态 << "\n";
    return d.成功 ? 0 : 1;
}

}  // namespace

static cli::命令注册 注册{"calc", "计算一个算式，如计算器所示 (evaluate an expression as the calculator shows it)",
                          &运行计算};
