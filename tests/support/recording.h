// The recording ask/tell callback of the tests (and the benchmarks): every
// call is kept, 询问 is answered from a queue and then with 默认回答.
#pragma once

#include "numeric/interaction.h"

#include <QList>
#include <QStringList>

class 记录交互 : public 交互接口 {
public:
    struct 记录项 { bool 是询问; QString 文本; QString 标题; };
    QList<记录项> 记录;
    QList<bool> 回答队列;
    bool 默认回答 = false;

    void 告知(const QString& 文本, const QString& 标题 = QString()) override {
        记录.append({false, 文本, 标题});
    }
    bool 询问(const QString& 文本, const QString& 标题 = QString()) override {
        记录.append({true, 文本, 标题});
        return 回答队列.isEmpty() ? 默认回答 : 回答队列.takeFirst();
    }
    QStringList 文本列表() const {
        QStringList r;
        for (const auto& x : 记录) r << x.文本;
        return r;
    }
};

// Installs a recording callback for the scope.
class 交互记录作用域 {
public:
    记录交互 记录器;
    交互记录作用域() : 旧_(安装交互(&记录器)) {}
    ~交互记录作用域() { 安装交互(旧_); }
    交互记录作用域(const 交互记录作用域&) = delete;
    交互记录作用域& operator=(const 交互记录作用域&) = delete;

private:
    交互接口* 旧_;
};
