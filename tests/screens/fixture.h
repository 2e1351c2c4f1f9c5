// A private program folder for one test: a fresh menu database built from
// the shipped seed, the shared state saved and restored, every message
// recorded, and the opener recording what it was handed.
#pragma once

#include "library/access.h"
#include "tests/support/recording.h"
#include "shell/startup.h"
#include "tests/support/whole_state.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>

// Readable failures: gtest prints a QString as text, not as code units.

inline const QString 种子目录 = QStringLiteral(ORVANE_SOURCE_DIR "/data/");

class 程序夹具 : public ::testing::Test {
protected:
    QTemporaryDir 根;
    全部状态守卫 守;
    std::unique_ptr<交互记录作用域> 消息;
    QStringList 已打开;
    打开器 旧打开器;

    void SetUp() override {
        ASSERT_TRUE(根.isValid());
        消息 = std::make_unique<交互记录作用域>();
        旧打开器 = 安装打开器([this](const QString& t) {
            已打开 << t;
            return true;
        });
        QDir().mkpath(程序夹());
        QDir().mkpath(安装夹());
    }
    void TearDown() override {
        释放单实例锁();
        安装打开器(旧打开器);
        消息.reset();
    }

    QString 程序夹() const { return 根.filePath(QStringLiteral("bin")); }
    QString 用户夹() const { return 根.filePath(QStringLiteral("user")); }
    QString 安装夹() const { return 根.filePath(QStringLiteral("share")); }
    启动环境 环境() const {
        return {程序夹(), 用户夹(), 安装夹(), 根.filePath(QStringLiteral("orvane.lock"))};
    }
    // Builds the menu database from the seed into `夹`.
    void 建菜单库(const QString& 夹) {
        QString why;
        ASSERT_TRUE(由脚本建库(种子目录 + QStringLiteral("QdpxMenu.sql"), QDir(夹).filePath(菜单库文件名), &why))
            << why.toStdString();
    }
    // Start-up with the menu database beside the program.
    void 带库启动() {
        建菜单库(程序夹());
        ASSERT_EQ(启动程序(环境()), 启动结果::已启动);
    }
    bool 执行SQL(const QString& sql, const QVariantList& 值 = {}) {
        return 执行库操作(数据状态.菜单库连接串, [&](QSqlDatabase& db) {
            QSqlQuery q(db);
            if (!q.prepare(sql)) return false;
            for (const auto& v : 值) q.addBindValue(v);
            return q.exec();
        });
    }
    int 使用数(const QString& id) {
        int r = -1;
        执行库操作(数据状态.菜单库连接串, [&](QSqlDatabase& db) {
            QSqlQuery q(db);
            q.prepare(QStringLiteral("Select 使用数 From 常规表 Where 类别ID = ?"));
            q.addBindValue(id);
            if (q.exec() && q.next()) r = q.value(0).toInt();
            return true;
        });
        return r;
    }
    QStringList 消息文本() const { return 消息->记录器.文本列表(); }
};

// The child of `w` named `名`, of type T (fails the test when missing).
template <class T>
T* 控件(const QWidget& w, const QString& 名) {
    T* c = w.findChild<T*>(名);
    EXPECT_NE(c, nullptr) << "no control " << 名.toStdString();
    return c;
}

inline void 点击(const QWidget& w, const QString& 名) {
    if (auto* b = 控件<QAbstractButton>(w, 名)) b->click();
}
