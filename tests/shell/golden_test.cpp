// The golden corpus of the calculator's compute procedure. Each line of
// tests/data/calculator_golden.tsv is one typed text under one of four
// settings, with every field the build of its day showed for it: the tidy
// text, the three screen texts, the flags, the evaluator's own text, the
// messages that went to the user, and the precision counters and error
// count the evaluation left. Faults found later stay recorded as they were;
// a change that means to alter lines rewrites those lines with it.
//
// Format: UTF-8, one case a line, fields split by tabs; inside a field
// "\\" "\t" "\r" "\n" stand for backslash, tab, CR and LF. The first line
// names the columns. 交互 holds the messages in order, one a line, each as
// "告知:" or "询问:", the title and ":" when there is one, then the text.
#include "expression/evaluator.h"
#include "expression/normalise.h"
#include "shell/calculator.h"
#include "tests/support/recording.h"
#include "shell/startup.h"
#include "tests/support/whole_state.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

struct 设置项 {
    char16_t 标识;
    int 小数位数;
    int 角度单位;
    bool 高精度;
};
// A: the calculator as it opens; B: all decimals, radians; C: no decimals,
// decimal degrees; D: A with the high-precision switch off.
constexpr 设置项 设置表[] = {{u'A', 8, 60, true}, {u'B', 28, 3, true}, {u'C', 0, 100, true}, {u'D', 8, 60, false}};

QString 转义(const QString& s) {
    QString r;
    for (QChar c : s) {
        switch (c.unicode()) {
        case u'\\': r += u"\\\\"; break;
        case u'\t': r += u"\\t"; break;
        case u'\r': r += u"\\r"; break;
        case u'\n': r += u"\\n"; break;
        default: r += c;
        }
    }
    return r;
}

QString 还原(const QString& s) {
    QString r;
    for (qsizetype i = 0; i < s.size(); ++i) {
        if (s[i] != u'\\' || i + 1 == s.size()) { r += s[i]; continue; }
        const QChar c = s[++i];
        r += c == u't' ? QChar(u'\t') : c == u'r' ? QChar(u'\r') : c == u'n' ? QChar(u'\n') : c;
    }
    return r;
}

// One case from a clean start: no leftovers of the previous case in the
// collector or the letters, then what the calculator does when it opens.
QStringList 计算一例(const QString& 输入, const 设置项& s) {
    清除计算状态();
    初始化字母变量();
    计算器初始化();
    const 输出设置 设置{s.小数位数, s.角度单位, s.高精度};
    QStringList 消息;
    计算显示 d;
    {
        交互记录作用域 盒;
        d = 计算器计算(输入, 设置);
        for (const auto& m : 盒.记录器.记录)
            消息 << (m.是询问 ? u"询问:"_qs : u"告知:"_qs) + (m.标题.isEmpty() ? QString() : m.标题 + u':') + m.文本;
    }
    // The procedure resets the counters before it returns; the same two
    // stages run again to see what the evaluation left in them.
    {
        交互记录作用域 静;
        设置作用域 同设置(设置);
        const QString t = 表达式规整(算式字符规整(输入));
        if (计算状态.错误数 <= 0) {
            清除计算状态();
            表达式计算(t);
        }
    }
    return {d.算式, d.结果, d.状态, d.成功 ? u"1"_qs : u"0"_qs, d.约数 ? u"1"_qs : u"0"_qs, d.原始结果,
            消息.join(u'\n'), QString::number(计算状态.可达有效位数), QString::number(计算状态.精度损失数),
            QString::number(计算状态.错误数)};
}

TEST(计算器金样, 逐行一致) {
    全部状态守卫 守;
    QFile f(QStringLiteral(ORVANE_SOURCE_DIR "/tests/data/calculator_golden.tsv"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly | QIODevice::Text));
    const QStringList 行 = QString::fromUtf8(f.readAll()).split(u'\n', Qt::SkipEmptyParts);
    ASSERT_GT(行.size(), 1);
    const QStringList 列名 = 行.first().split(u'\t');
    ASSERT_EQ(列名.size(), 12);
    int 例数 = 0, 不符 = 0;
    for (qsizetype n = 1; n < 行.size(); ++n) {
        const QStringList 列 = 行[n].split(u'\t');
        const 设置项* s = nullptr;
        for (const auto& g : 设置表)
            if (列.size() == 12 && 列[1] == QString(QChar(g.标识))) s = &g;
        if (!s) {
            ADD_FAILURE() << "第 " << n + 1 << " 行无法读取: " << 行[n].toStdString();
            continue;
        }
        ++例数;
        const QStringList 实得 = 计算一例(还原(列[0]), *s);
        for (int k = 0; k < 实得.size(); ++k) {
            if (转义(实得[k]) == 列[k + 2]) continue;
            if (++不符 <= 20)
                ADD_FAILURE() << "输入 " << 列[0].toStdString() << "  设置 " << 列[1].toStdString() << "  字段 "
                              << 列名[k + 2].toStdString() << "\n  预期 " << 列[k + 2].toStdString() << "\n  实得 "
                              << 转义(实得[k]).toStdString();
        }
    }
    EXPECT_EQ(不符, 0) << "共 " << 不符 << " 处不符（" << 例数 << " 例）";
}

}  // namespace
