// Syntax validation: operator repair, number canonicalisation, the
// operator and bracket check with its counted message, the display form,
// the whole 表达式规整 chain, and a robustness run over random text.
#include "expression/normalise.h"
#include "expression/validate.h"
#include "shell/interaction.h"
#include "shell/state.h"
#include "numeric/text.h"

#include <gtest/gtest.h>

#include <ostream>

// Readable failure output for texts.
static void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

#include <chrono>
#include <random>

namespace {

struct 例 {
    const char16_t* 输入;
    const char16_t* 期望;
};

QString Q(const char16_t* s) { return QString::fromUtf16(s); }

const QString 相邻消息 = u" 算式中存在多个运算符相临的错误，请修改算式！！！"_qs;
const QString 顺序消息 = u" 算式中--括号顺序--错误,请修改。"_qs;
const QString 配对消息 = u" 算式中--括号无法配对--错误,请修改。"_qs;

}  // namespace

// ---------------------------------------------------------------------------
// 修复相邻运算符

TEST(OperatorRepair, FoldsPairs) {
    const 例 表[] = {
        {u"1+*2", u"1*2"},       // the second binary operator wins
        {u"1+-2", u"1-2"},
        {u"1--2", u"1+2"},
        {u"1---2", u"1-2"},
        {u"1-+2", u"1-2"},
        {u"1++2", u"1+2"},
        {u"2^-3", u"2^-3"},      // a sign behind ^ stays
        {u"2*-3", u"2*-3"},
        {u"2^+3", u"2^3"},
        {u"1/+2", u"1/2"},
        {u"1+/2", u"1/2"},
        {u"1-^2", u"1^2"},
        {u"1*/2", u"1/2"},
        {u"1/*2", u"1*2"},
        {u"1*\\2", u"1\\2"},
        {u"1**2", u"1*2"},
        {u"1****2", u"1*2"},
        {u"1\\\\2", u"1\\2"},
        {u"(*3)", u"(3)"},
        {u"(3*)", u"(3)"},
        {u"(+3)", u"(3)"},
        {u"(-3)", u"(-3)"},      // "(-" is a sign
        {u"(!3)", u"(3)"},
        {u"(5.)", u"(5)"},
        {u"()", u"(0)"},
        {u"3!!", u"3!"},
        {u"3!!!!", u"3!"},
        {u"3+!", u"3!"},
        {u"3*%", u"3%"},
        {u"3.%", u"3%"},
        {u"3-‰", u"3‰"},
        {u"5%%", u"5%"},
        {u"5‰‰", u"5‰"},
        {u"1..5", u"1.5"},
        {u"1....5", u"1.5"},
        {u"1......5", u"1..5"},  // the doubles run twice, not to a fixed point
        {u" 1 + 2 ", u"1+2"},
        {u"1\u3000+\u30002", u"1+2"},
        {u"", u"0"},
        {u"   ", u"0"},
        {u"算式错误", u"0"},
        {u"SIN(X)", u"SIN(X)"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        清除计算状态();
        EXPECT_EQ(修复相邻运算符(Q(e.输入)), Q(e.期望));
        EXPECT_EQ(公共.错误数, 0);
    }
}

// ---------------------------------------------------------------------------
// 算式数字规范

TEST(NumberCanon, RewritesEachNumber) {
    const 例 表[] = {
        {u"007", u"7"},
        {u"1.50", u"1.5"},
        {u"2E3", u"2000"},
        {u"2e3", u"2000"},
        {u"1.5E-3", u"0.0015"},
        {u"1E29", u"1E+29"},
        {u"100000000000000000000000000000", u"1E+29"},
        {u"X+007", u"X+7"},
        {u"2*SIN030", u"2*SIN30"},
        {u".5", u"0.5"},
        {u"0.1+0.20", u"0.1+0.2"},
        {u"(3.000)*X", u"(3)*X"},
        {u"1-2", u"1-2"},        // a binary minus ends the number
        {u"2E-3+1", u"0.002+1"},
        {u"", u"0"},
        {u"  ", u"0"},
        {u"Π", u"Π"},
        {u"1.2345678901234567890123456789", u"1.2345678901234567890123456789"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        清除计算状态();
        EXPECT_EQ(算式数字规范(Q(e.输入)), Q(e.期望));
        EXPECT_EQ(公共.错误数, 0);
    }
}

TEST(NumberCanon, MalformedNumbersReport) {
    const char16_t* 表[] = {u"1.2.3", u"2E", u"2E+", u"1+2E"};
    for (const auto* s : 表) {
        SCOPED_TRACE(Q(s).toStdString());
        清除计算状态();
        const QString r = 算式数字规范(Q(s));
        EXPECT_GT(公共.错误数, 0);
        EXPECT_FALSE(公共.错误记录.isEmpty());
        EXPECT_TRUE(r.endsWith(u'1'));  // the reader's failure marker stands for the rest
    }
}

// ---------------------------------------------------------------------------
// 检查运算符相邻

TEST(AdjacencyCheck, CountsFaults) {
    struct 查例 {
        const char16_t* 输入;
        int 相邻错;             // faults of the operator table
        const char16_t* 括号;   // bracket message or nullptr
    };
    const 查例 表[] = {
        {u"1+2", 0, nullptr},
        {u"2^-3", 0, nullptr},
        {u"-5", 0, nullptr},
        {u"+5", 0, nullptr},
        {u"5%+5‰", 0, nullptr},
        {u"3!*2", 0, nullptr},
        {u"(-5)", 0, nullptr},
        {u"(1)*(2)", 0, nullptr},
        {u"(1)(2)", 0, nullptr},   // no fault: the brackets pair
        {u"Π*Ε", 0, nullptr},
        {u"2.X", 1, nullptr},      // point ahead of a letter
        {u"3!!", 1, nullptr},
        {u"1*/2", 2, nullptr},     // "*" sees "/" behind, "/" sees "*" ahead
        {u"(*3)", 2, nullptr},     // "(" sees "*", "*" sees "("
        {u"1+)", 2, u" 算式中--括号无法配对--错误,请修改。"},
        {u"-%", 2, nullptr},
        {u"(!3)", 2, nullptr},
        {u"2^)", 2, u" 算式中--括号无法配对--错误,请修改。"},
        {u")1(", 0, u" 算式中--括号顺序--错误,请修改。"},
        {u"(1+2", 0, u" 算式中--括号无法配对--错误,请修改。"},
        {u"1+2)", 0, u" 算式中--括号无法配对--错误,请修改。"},
        {u"(1))+((2)", 0, u" 算式中--括号顺序--错误,请修改。"},
        {u"((1)", 0, u" 算式中--括号无法配对--错误,请修改。"},
        {u"(1+(2)", 0, u" 算式中--括号无法配对--错误,请修改。"},
        {u"((1)+(2))", 0, nullptr},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        交互记录作用域 盒;
        清除计算状态();
        EXPECT_EQ(检查运算符相邻(Q(e.输入)), Q(e.输入));
        const int 括号错 = e.括号 ? 1 : 0;
        EXPECT_EQ(公共.错误数, e.相邻错 + 括号错);
        QStringList 应示;
        QString 应记;
        if (e.相邻错 > 0) {
            应示 << 相邻消息;
            应记 += 相邻消息 + u"\r\n"_qs;
        }
        if (e.括号) {
            应示 << Q(e.括号);
            应记 += Q(e.括号) + u"\r\n"_qs;
        }
        EXPECT_EQ(盒.记录器.文本列表(), 应示);
        EXPECT_EQ(公共.错误记录, 应记);
    }
}

TEST(AdjacencyCheck, FirstErrorOnlyWhenCountIsOne) {
    交互记录作用域 盒;
    清除计算状态();
    检查运算符相邻(u"2.X"_qs);  // one fault: the count becomes 1
    EXPECT_EQ(公共.错误数, 1);
    EXPECT_EQ(公共.首个错误, 相邻消息);
    EXPECT_EQ(公共.错误提示, 相邻消息);

    清除计算状态();
    检查运算符相邻(u"1*/2"_qs);  // two faults: the count jumps to 2
    EXPECT_EQ(公共.错误数, 2);
    EXPECT_TRUE(公共.首个错误.isEmpty());
    EXPECT_EQ(公共.错误提示, 相邻消息);
    EXPECT_EQ(公共.错误记录, 相邻消息 + u"\r\n"_qs);  // recorded once

    清除计算状态();
    检查运算符相邻(u"(*3"_qs);  // two faults, then a bracket message becomes the third
    EXPECT_EQ(公共.错误数, 3);
    EXPECT_TRUE(公共.首个错误.isEmpty());
    EXPECT_EQ(公共.错误提示, 配对消息);
}

TEST(AdjacencyCheck, BlanksAndMarkers) {
    const 例 表[] = {
        {u"", u"0"},
        {u" \u3000 ", u"0"},
        {u"算式错误", u"0"},
        {u" 1 + 2 ", u"1+2"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        交互记录作用域 盒;
        清除计算状态();
        EXPECT_EQ(检查运算符相邻(Q(e.输入)), Q(e.期望));
        EXPECT_EQ(公共.错误数, 0);
        EXPECT_TRUE(盒.记录器.记录.isEmpty());
    }
}

// ---------------------------------------------------------------------------
// 算式显示形式

TEST(DisplayForm, SpacingAndNames) {
    const 例 表[] = {
        {u"-5", u"- 5"},
        {u"5", u"5"},
        {u"1+2", u"1 + 2"},
        {u"2*SIN30-(0-3)", u"2 * Sin30 - (0 - 3)"},
        {u"2*SIN30-(-3)", u"2 * Sin30 - (-3)"},
        {u"2^-3", u"2 ^ -3"},
        {u"2*-3", u"2 * -3"},
        {u"1--2", u"1 - -2"},
        {u"7\\3", u"7 \\ 3"},
        {u"1E+29", u"1E+29"},
        {u"1E-05*2", u"1E-05 * 2"},
        {u"ASINH(1)+SINH(1)", u"Asinh(1) + Sinh(1)"},
        {u"ACOSH(1)*ATANH(1)/ACOTH(1)", u"Acosh(1) * Atanh(1) / Acoth(1)"},
        {u"SIN(30)", u"Sin(30)"},
        {u"cos30", u"Cos30"},
        {u"LG2+LN3", u"Lg2 + Ln3"},
        {u"SING(1)", u"SinG(1)"},   // only SIGN has a display name; SIN matches inside
        {u"ABS(X)+INT(Y)+SQR(Z)", u"Abs(X) + Int(Y) + Sqr(Z)"},
        {u"SIN+1", u"Sin(0) + 1"},   // a function with nothing behind it gets 0
        {u"SIN*2", u"Sin(0) * 2"},
        {u"X*SIN", u"X * Sin"},
        {u"Π*2", u"π * 2"},
        {u"Ε", u"ε"},
        {u"(-3)", u"(-3)"},
        {u"(+3)", u"(3)"},
        {u"(1)(2)", u"(1)*(2)"},
        {u"A=B", u"A = B"},
        {u"IF(X)", u"If (X)"},
        {u"2 * 3", u"2 * 3"},
        {u"", u"0"},
        {u"\u3000", u"0"},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        EXPECT_EQ(算式显示形式(Q(e.输入)), Q(e.期望));
    }
}

// ---------------------------------------------------------------------------
// 表达式规整: the whole chain, behind 算式字符规整 as the screens run it.

TEST(ExpressionTidy, WholeChain) {
    struct 链例 {
        const char16_t* 输入;
        const char16_t* 期望;
        bool 有错;
    };
    const 链例 表[] = {
        {u"1+2", u"1 + 2", false},
        {u"2x", u"2 * X", false},
        {u"三点五乘二", u"3.5 * 2", false},
        {u"三乘以四", u"3 * 4", false},
        {u"七求余三", u"7 \\ 3", false},
        {u"２ｓｉｎ３０", u"2 * Sin30", false},
        {u"1，000+1", u"1000 + 1", false},
        {u"007+1.50", u"7 + 1.5", false},
        {u"-5", u"- 5", false},
        {u"2E3", u"2000", false},
        {u"1E29", u"1E+29", false},
        {u"2π", u"2 * π", false},
        {u"3!!", u"3!", false},
        {u"1+*2", u"1 * 2", false},
        {u"(1+2)(3+4)", u"(1 + 2) * (3 + 4)", false},
        {u"（1+2）×3", u"(1 + 2) * 3", false},
        {u"5%", u"5%", false},
        {u"", u"0", false},
        {u"+", u"0", false},
        {u"O", u"O请修改", true},
        {u"(1+2", u"(1 + 2请修改", true},
        {u")1(", u"1", false},      // the junk cut leaves only the number
        {u"1.2.3", u"1请修改", true},
        {u"2E", u"1请修改", true},
        {u"SIGN(1)", u"Sign(1)请修改", true},
    };
    for (const auto& e : 表) {
        SCOPED_TRACE(Q(e.输入).toStdString());
        交互记录作用域 盒;
        EXPECT_EQ(表达式规整(算式字符规整(Q(e.输入))), Q(e.期望));
        EXPECT_EQ(公共.错误数 > 0, e.有错);
        EXPECT_EQ(公共.错误记录.isEmpty(), !e.有错);
    }
}

TEST(ExpressionTidy, ResetsEarlierErrors) {
    交互记录作用域 盒;
    清除计算状态();
    报告错误(u"earlier"_qs);
    公共.精度损失数 = 3;
    EXPECT_EQ(表达式规整(u"1+2"_qs), u"1 + 2"_qs);
    EXPECT_EQ(公共.错误数, 0);
    EXPECT_TRUE(公共.首个错误.isEmpty());
    EXPECT_EQ(公共.精度损失数, 0);
}

// A tidy text without errors is itself a valid input: tidying it again
// changes nothing and finds nothing.
TEST(ExpressionTidy, TidyTextIsStable) {
    const char16_t* 表[] = {
        u"2x+3y", u"2sin30-(0-3)", u"-5", u"2^-3", u"1E29*2", u"(1+2)(3+4)", u"3!2",
        u"2π+ε", u"sin+1", u"X(2)", u"5%+5‰", u"asinh(1)", u"abs(-3)", u".5",
    };
    for (const auto* s : 表) {
        SCOPED_TRACE(Q(s).toStdString());
        交互记录作用域 盒;
        const QString 一次 = 表达式规整(算式字符规整(Q(s)));
        ASSERT_EQ(公共.错误数, 0);
        EXPECT_EQ(表达式规整(算式字符规整(一次)), 一次);
        EXPECT_EQ(公共.错误数, 0);
    }
}

// ---------------------------------------------------------------------------
// Robustness: random text of up to 2 000 characters through both stages.
// No crash, no hang, and any failure leaves a message in the collector.

TEST(ExpressionTidy, RandomTextNeverBreaks) {
    const QStringList 片段 = {
        u"0"_qs, u"1"_qs, u"2"_qs, u"5"_qs, u"9"_qs, u"."_qs, u"E"_qs, u"e"_qs,
        u"+"_qs, u"-"_qs, u"*"_qs, u"/"_qs, u"\\"_qs, u"^"_qs, u"!"_qs, u"%"_qs, u"‰"_qs,
        u"("_qs, u")"_qs, u"["_qs, u"}"_qs, u"（"_qs, u"）"_qs, u"《"_qs,
        u"X"_qs, u"O"_qs, u"a"_qs, u"z"_qs, u"SIN"_qs, u"cos"_qs, u"LG"_qs, u"SIGN"_qs,
        u"Π"_qs, u"π"_qs, u"ε"_qs, u"pai"_qs,
        u"１"_qs, u"＋"_qs, u"－"_qs, u"×"_qs, u"÷"_qs, u"："_qs, u"．"_qs, u"Ｓ"_qs,
        u"一"_qs, u"二"_qs, u"零"_qs, u"点"_qs, u"负"_qs, u"乘以"_qs, u"除以"_qs, u"求余"_qs,
        u"等于"_qs, u"大于"_qs, u"、"_qs, u"，"_qs, u" "_qs, u"\u3000"_qs, u">="_qs,
        u"算式错误"_qs, u"\t"_qs,
    };
    std::mt19937 随机(20261123);
    std::uniform_int_distribution<int> 取片(0, static_cast<int>(片段.size()) - 1);
    std::uniform_int_distribution<int> 取长(0, 2000);
    std::uniform_int_distribution<int> 取短(0, 12);  // short texts are more often error-free
    int 无错次数 = 0;
    const auto 开始 = std::chrono::steady_clock::now();
    交互记录作用域 盒;
    for (int 次 = 0; 次 < 600; ++次) {
        QString 文本;
        const int 长 = 次 < 10 ? 2000 : (次 % 2 ? 取短(随机) : 取长(随机));
        while (文本.size() < 长) 文本 += 片段[取片(随机)];
        文本.truncate(长);
        盒.记录器.记录.clear();
        const QString 字符 = 算式字符规整(文本);
        const QString r = 表达式规整(字符);
        ASSERT_FALSE(r.isEmpty());
        if (公共.错误数 > 0) {
            ASSERT_TRUE(r.endsWith(u"请修改"_qs)) << 文本.toStdString();
            ASSERT_FALSE(公共.错误记录.isEmpty());
        } else {
            ASSERT_FALSE(r.endsWith(u"请修改"_qs)) << 文本.toStdString();
            ASSERT_TRUE(公共.错误记录.isEmpty());
        }
        // Whatever was shown to the user was also collected.
        for (const QString& 示 : 盒.记录器.文本列表()) ASSERT_TRUE(公共.错误记录.contains(示));
        if (公共.错误数 == 0) {
            ++无错次数;
            // A tidy text without errors is read again without errors; and
            // if it begins and ends as an expression can (the junk cut runs
            // ahead of the operator repair, so a lone "/" or "%" may be left
            // at an end), it tidies to itself.
            const QString 再 = 表达式规整(算式字符规整(r));
            EXPECT_EQ(公共.错误数, 0) << r.toStdString();
            const QString 可开头 = u"0123456789-(πε"_qs, 可结尾 = u"0123456789)!%‰πε"_qs;
            const bool 端正 = (txt::isAsciiLetter(r.front()) || 可开头.contains(r.front())) &&
                              (txt::isAsciiLetter(r.back()) || 可结尾.contains(r.back()));
            if (端正) EXPECT_EQ(再, r) << 文本.toStdString();
        }
        // The number cleaners take the same text without breaking either.
        规整数字文本(文本);
        规整数字列表(文本);
        规整文本字符(文本);
        清除计算状态();
        规整数字(数值(文本));
    }
    EXPECT_GT(无错次数, 10);  // the stability check above did run
    const auto 用时 = std::chrono::steady_clock::now() - 开始;
    EXPECT_LT(std::chrono::duration_cast<std::chrono::seconds>(用时).count(), 60);
}
