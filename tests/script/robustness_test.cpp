// Hostile scripts: random statements of every shape with garbage mixed in,
// unbalanced brackets, missing groups, long scripts and huge counts. The
// runner and the canonicaliser must always come back, in bounded time,
// with failures in the collector and the collector consistent.
#include "script_fixture.h"

#include <QElapsedTimer>
#include <random>

namespace {

class 生成器 {
public:
    explicit 生成器(unsigned 种子) : r_(种子) {}

    int 取(int n) { return std::uniform_int_distribution<int>(0, n - 1)(r_); }

    QString 数() {
        static const char16_t* 表[] = {u"0", u"1", u"2.5", u"-3", u"1E+30", u"0.0001", u"7", u"1E-20", u"99"};
        return Q(表[取(9)]);
    }
    QString 字母() { return QString(QChar(u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"[取(26)])); }
    QString 式(int 深 = 0) {
        switch (深 > 2 ? 取(2) : 取(7)) {
        case 0: return 数();
        case 1: return 字母();
        case 2: return 式(深 + 1) + QChar(u"+-*/^\\"[取(6)]) + 式(深 + 1);
        case 3: return u'(' + 式(深 + 1) + u')';
        case 4: return Q(表函数[取(5)]) + u'(' + 式(深 + 1) + u')';
        case 5: return 式(深 + 1) + QChar(u"!%"[取(2)]);
        default: return u'-' + 式(深 + 1);
        }
    }
    // One statement of a random shape; small bounds keep loops short.
    QString 语句() {
        const QString 小 = QString::number(取(9));
        switch (取(8)) {
        case 0: return 字母() + u'=' + 式();
        case 1: return QChar(0x2192) + 字母() + u'=' + 式();
        case 2: return 式();
        case 3: return QChar(u"UVWQ"[取(4)]) + Q(u"=(") + 数() + u',' + 数() + u',' + 数() + u')';
        case 4: return 字母() + Q(u"=\u03A3(") + 小 + Q(u")(") + QString::number(取(9)) + Q(u")(") + 式() + u')';
        case 5: return 字母() + Q(u"=\u222B(") + 小 + Q(u")(") + 数() + Q(u")(") + 式() + Q(u")(")
                       + QString::number(1 + 取(40)) + u')';
        case 6: return Q(u"IF(") + 式() + Q(u")(") + 字母() + u'=' + 式() + Q(u")(") + 字母() + u'=' + 式() + u')';
        default: {  // pure garbage from the marks and operators, no digits
            QString g;
            const int n = 1 + 取(12);
            for (int i = 0; i < n; ++i) g += 垃圾字符();
            return g;
        }
        }
    }
    QChar 垃圾字符() {
        static const QString 表 = Q(u"()(),;=\u03A3\u222B\u2192IF^*/\\!%\u2030.E-+O \u3000\u9762");
        return 表.at(取(static_cast<int>(表.size())));
    }
    // Deletes, inserts or swaps a few characters.
    QString 变异(QString s) {
        const int n = 取(4);
        for (int k = 0; k < n && !s.isEmpty(); ++k) {
            const int i = 取(static_cast<int>(s.size()));
            switch (取(3)) {
            case 0: s.remove(i, 1); break;
            case 1: s.insert(i, 垃圾字符()); break;
            default:
                if (i + 1 < s.size()) std::swap(s[i], s[i + 1]);
            }
        }
        return s;
    }

private:
    static constexpr const char16_t* 表函数[] = {u"SIN", u"LN", u"ATAN", u"COS", u"ABS"};
    std::mt19937 r_;
};

void 检查收集器(const QString& 脚本) {
    ASSERT_GE(公共.错误数, 0);
    EXPECT_EQ(公共.错误数 == 0, 公共.首个错误.isEmpty()) << 文(脚本);
    if (公共.错误数 > 0) {
        EXPECT_TRUE(公共.错误记录.contains(公共.首个错误)) << 文(脚本);
    }
}

}  // namespace

using 健壮 = 脚本测试;

TEST_F(健壮, RandomScriptsWithGarbageAlwaysComeBack) {
    生成器 g(20261123u);
    QElapsedTimer 钟;
    钟.start();
    int 有错 = 0;
    for (int k = 0; k < 500; ++k) {
        重置脚本状态();
        QStringList 句;
        const int n = 1 + g.取(6);
        for (int i = 0; i < n; ++i) 句 << (g.取(3) == 0 ? g.变异(g.语句()) : g.语句());
        const QString 脚本 = 句.join(u';');
        const QString 出 = 运行算式(脚本);
        检查收集器(脚本);
        if (公共.错误数 > 0) ++有错;
        const QString 规 = 规整算式(脚本);
        EXPECT_FALSE(规.isEmpty());
        EXPECT_TRUE(规 == u"0"_qs || 规.endsWith(u";  "_qs)) << 文(规);
        清除计算状态();
        运行算式(规);  // the saved form must come back too
        检查收集器(规);
    }
    EXPECT_GT(有错, 60);  // garbage really did reach the collector
    EXPECT_LT(钟.elapsed(), 60000);
}

TEST_F(健壮, UnbalancedAndMissingGroupsAreCollected) {
    for (const char16_t* s : {u"F=(1+2", u"F=1+2)", u")(", u"IF((1)(F=1)(F=2)", u"IF)1((F=1)(F=2)",
                              u"F=\u03A3)1()2()U(", u"U=((1,2)", u"\u2192A=((",
                              u"\u222B(0)(1)(X)(1)(2);F=\u222B(1/0)(1)(X)"}) {
        重置脚本状态();
        运行算式(Q(s));
        EXPECT_GT(公共.错误数, 0) << 文(Q(s));
        检查收集器(Q(s));
    }
}

TEST_F(健壮, ThousandStatements) {
    QString 脚本 = u"A=0"_qs;
    for (int i = 0; i < 1000; ++i) 脚本 += u";A=A+1"_qs;
    脚本 += u";A"_qs;
    QElapsedTimer 钟;
    钟.start();
    EXPECT_EQ(运行算式(脚本), u"1000"_qs);
    EXPECT_EQ(公共.错误数, 0);
    EXPECT_LT(钟.elapsed(), 5000);

    // One bad statement in the middle: everything behind it is void.
    重置脚本状态();
    QString 坏 = u"A=0"_qs;
    for (int i = 0; i < 1000; ++i) 坏 += i == 500 ? u";A=A+(1"_qs : u";A=A+1"_qs;
    坏 += u";\u2192R=A;A"_qs;
    const QString 出 = 运行算式(坏);
    EXPECT_EQ(变量文本(u'A'), u"500"_qs);
    EXPECT_EQ(出, Q(u"计算常规输出算式时---出错了！; 1"));
    EXPECT_GE(公共.错误数, 1);
    // Canonicalising a long script is linear too.
    EXPECT_TRUE(规整算式(脚本).startsWith(u"A = 0;  A = A + 1;  "_qs));
}

TEST_F(健壮, HugeCountsAreClampedOrFailFast) {
    QElapsedTimer 钟;
    钟.start();
    // The strip count is capped at 100000.
    ASSERT_TRUE(积分赋值算式(Q(u"F=\u222B(0)(1)(1)(1E+9)")));
    EXPECT_NEAR(变量(u'F').双精度值(), 1.0, 1e-9);
    EXPECT_EQ(定积分计算(Q(u"\u222B(0)(1)(X)(1E+300)")), 0.0);
    EXPECT_FALSE(公共.积分错误.isEmpty());
    EXPECT_LT(钟.elapsed(), 20000);
}

TEST_F(健壮, LongAndOddTextsInThePureHelpers) {
    const QString 深 = QString(5000, u'(') + u'1' + QString(5000, u')');
    EXPECT_TRUE(分析括号组(深 + u"(2)(3)"_qs, 1));
    EXPECT_EQ(公共.括号组位置[5], 深.size() + 6);
    // Surrogate pairs and NULs are just characters.
    const QString 怪 = u"F="_qs + Q(u"\U0001F600") + QChar(0) + u"(1)(2)(3)"_qs;
    分析括号组(怪, 1);
    EXPECT_FALSE(规整算式(怪).isEmpty());
}
