// The canonical form written when a formula is saved: every statement kind,
// the rejection texts, the characters that are dropped, and that a saved
// script runs as the typed one did.
#include "script_fixture.h"

namespace {
QString Q(const char16_t* s) { return QString::fromUtf16(s); }
}  // namespace

using 规整 = 脚本测试;

TEST_F(规整, CanonicalFormsAndRejections) {
    struct 例 { const char16_t* 入; const char16_t* 出; };
    const 例 表[] = {
        // nothing left
        {u"", u"0"},
        {u"   ", u"0"},
        {u"\u4F60\u597D", u"0"},
        // assignment
        {u"F=X+1", u"F = X + 1;  "},
        {u"f = x + 1 ;", u"F = X + 1;  "},
        {u"AB=2X", u"A = 2 * X;  "},
        {u"O=5", u"F = 5;  "},
        {u"2A=5", u"F = 5;  "},
        {u"ABCDEF=1", u"A = 1;  "},                       // "=" at 7: accepted
        {u"ABCDEFG=1", u"\u8BF7\u4FEE\u6539F=0;  "},      // "=" at 8: rejected
        {u"=5", u"\u8BF7\u4FEE\u6539F=0;  "},
        {u"F=", u"\u8BF7\u4FEE\u6539F=0;  "},
        // arrow output (labels keep only script characters)
        {u"\u2192AREA=X*Y", u"\u2192AREA = X * Y;  "},
        {u"\u2192\u9762\u79EF=X*Y", u"\u8BF7\u4FEE\u6539\u2192F=0;  "},  // the label vanishes
        {u"\u2192=5", u"\u8BF7\u4FEE\u6539\u2192F=0;  "},
        {u"\u2192ABCDEFGHIJK=1", u"\u2192ABCDEFGHIJK = 1;  "},         // "=" at 13
        {u"\u2192ABCDEFGHIJKL=1", u"\u8BF7\u4FEE\u6539\u2192F=0;  "},  // "=" at 14
        {u"\u2192A=", u"\u8BF7\u4FEE\u6539\u2192F=0;  "},
        {u"X\u2192A=1", u"\u8BF7\u4FEE\u6539\u2192F=0;  "},
        // array: every item followed by a comma
        {u"U=(1,3,5)", u"U = (1,3,5,);  "},
        {u"U=(1,3,5,)", u"U = (1,3,5,);  "},
        {u"V=(1.50,007)", u"V = (1.5,7,);  "},
        {u"Q=(1,2)", u"W = (1,2,);  "},
        {u"U=1,2", u"U = (1,2,);  "},
        {u"U,=1", u"\u8BF7\u4FEE\u6539U=(1,3,5);  "},
        {u"U=(),5", u"\u8BF7\u4FEE\u6539U=(1,3,5);  "},
        {u"ABCDEFGHIJKL=1,2", u"\u8BF7\u4FEE\u6539U=(1,3,5);  "},      // "=" at 13
        // summation
        {u"F=\u03A3(0)(5)(U)", u"F = \u03A3(0)(5)(U);  "},
        {u"G=\u03A3(1)(N)(U*V)", u"G = \u03A3(1)(N)(U * V);  "},
        {u"f=\u03C3(1)(3)(u)", u"F = \u03A3(1)(3)(U);  "},             // σ upper-cases to Σ
        {u"OO=\u03A3(1)(3)(U)", u"F = \u03A3(1)(3)(U);  "},
        {u"F=\u03A3(1)(3)(U)X", u"F = \u03A3(1)(3)(U);  "},            // the tail is not kept
        {u"\u03A3(1)(3)(U)", u"\u8BF7\u4FEE\u6539F=\u03A3(0)(5)(U);  "},
        {u"ABCD=\u03A3(1)(3)(U)", u"\u8BF7\u4FEE\u6539F=\u03A3(0)(5)(U);  "},
        {u"F=\u03A3(1)(3)", u"\u8BF7\u4FEE\u6539F=\u03A3(0)(5)(U);  "},
        // integral: 100 strips written when none is given
        {u"F=\u222B(0)(2)(X)(100)", u"F = \u222B(0)(2)(X)(100);  "},
        {u"F=\u222B(0)(2)(X)", u"F = \u222B(0)(2)(X)(100);  "},
        {u"F=\u222B(0)(2)(X^2)(50)", u"F = \u222B(0)(2)(X ^ 2)(50);  "},
        {u"G=\u222B(0)(1)(X)", u"G = \u222B(0)(1)(X)(100);  "},
        {u"\u222B(0)(2)(X)", u"F = \u222B(0)(2)(X)(100);  "},
        {u"=\u222B(0)(2)(X)", u"F = \u222B(0)(2)(X)(100);  "},
        {u"F=\u222B(0)(2)", u"F = \u79EF\u5206\u7B97\u5F0F\u7684\u683C\u5F0F\u5E94\u4E3A \u222B(0)(2)(X)(100);  "},
        // conditional: branches are canonical assignments
        {u"IF(X-1)(F=1)(F=0)", u"If(X - 1)(F = 1)(F = 0);  "},
        {u"if(1)(g=2)(h=3)", u"If(1)(G = 2)(H = 3);  "},
        {u"IF(0)(F=1)()", u"If(0)(F = 1)(\u8BF7\u4FEE\u6539F=0);  "},
        {u"XXIF(1)(F=1)(F=0)", u"\u8BF7\u4FEE\u6539If(1)(F=1)(F=0);  "},
        {u"IF(1)(F=1)", u"\u8BF7\u4FEE\u6539If(1)(F=1)(F=0);  "},
        // plain output and several statements
        {u"2X+1", u"2 * X + 1;  "},
        {u"A=1;B=2;A+B", u"A = 1;  B = 2;  A + B;  "},
        {u"F=X+1;;", u"F = X + 1;  0;  "},
        // characters outside the script alphabet vanish
        {u"F=1\uFF0C2", u"F = 12;  "},
        {u"F=1\u3000+2", u"F = 1 + 2;  "},
    };
    for (const auto& e : 表) EXPECT_EQ(规整算式(Q(e.入)), Q(e.出)) << Q(e.入).toStdString();
}

TEST_F(规整, IntegralStatementWithoutTheSign) {
    EXPECT_EQ(规整积分赋值算式(u"F=1"_qs), Q(u"积分赋值算式的格式应为 F=\u222B(0)(2)(X)(100)"));
    EXPECT_EQ(规整积分算式(u"(0)(2)(X)"_qs), Q(u"积分算式的格式应为 \u222B(0)(2)(X)(100)"));
    EXPECT_EQ(规整积分算式(Q(u"\u222B(0)(1)(X)(7)")), Q(u"\u222B(0)(1)(X)(7)"));
}

TEST_F(规整, UnreadableNamesAreMarkedAndLeaveTheLastStatementsErrors) {
    const QString r = 规整算式(u"F=QQ+1;G=1"_qs);
    EXPECT_TRUE(r.startsWith(Q(u"F = QQ + 1请修改;  "))) << r.toStdString();
    EXPECT_EQ(公共.错误数, 0);   // the last statement's normalisation reset it
    规整算式(u"G=1;F=QQ+1"_qs);
    EXPECT_GE(公共.错误数, 1);
}

TEST_F(规整, CanonicalIsStableAndRunsLikeTheTypedScript) {
    const char16_t* 表[] = {
        u"X=3;Y=4;\u2192D=(X^2+Y^2)^0.5",
        u"U=(1,2,3,4);F=\u03A3(1)(4)(U^2);F",
        u"U=(-5,2);F=\u03A3(1)(2)(U);F",
        u"A=2;IF(A-1)(B=10)(B=20);B*2",
        u"F=\u222B(0)(1)(X)(10);\u2192R=F",
    };
    for (const char16_t* s : 表) {
        重置脚本状态();
        const QString 规 = 规整算式(Q(s));
        EXPECT_EQ(规整算式(规), 规) << Q(s).toStdString();
        重置脚本状态();
        变量(u'X') = 数值(u"5");
        const QString 原出 = 运行算式(Q(s));
        ASSERT_EQ(公共.错误数, 0) << Q(s).toStdString() << 公共.错误记录.toStdString();
        重置脚本状态();
        变量(u'X') = 数值(u"5");
        EXPECT_EQ(运行算式(规), 原出) << 规.toStdString();
        EXPECT_EQ(公共.错误数, 0) << 规.toStdString() << 公共.错误记录.toStdString();
    }
}

TEST_F(规整, RejectedStatementsShowWhenTheSavedScriptRuns) {
    // A rejected conditional fails the run; a rejected arrow shows the
    // arrow's failure literal in the output.
    const QString 规 = 规整算式(u"XXIF(1)(F=1)(F=0);1"_qs);
    重置脚本状态();
    运行算式(规);
    EXPECT_EQ(公共.首个错误, Q(u"计算条件判断算式时----出现错误了！"));
    const QString 规2 = 规整算式(Q(u"\u2192=5;2"));
    重置脚本状态();
    EXPECT_EQ(运行算式(规2), Q(u"计算常规输出算式时---出错了！; 2"));
}
