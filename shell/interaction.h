// The ask/tell callback: the few places where logic must speak to the user
// (the evaluator's message boxes, the integral's time prompt, yes/no
// confirmations) call through this, never a widget. The program installs a
// message-box implementation; the command-line companion one that writes to
// stderr; tests a recording one that answers as told.
#pragma once

#include <QString>
#include <QStringList>
#include <utility>

class 交互接口 {
public:
    virtual ~交互接口() = default;
    // A plain message box with OK. 标题 may be empty (no title).
    virtual void 告知(const QString& 文本, const QString& 标题 = QString()) = 0;
    // A Yes/No box; true for Yes.
    virtual bool 询问(const QString& 文本, const QString& 标题 = QString()) = 0;
};

// Records every call; answers 询问 from a queue, then with 默认回答.
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

namespace detail {
inline 记录交互 默认交互实例;            // used until the shell installs its own
inline 交互接口* 当前交互 = &默认交互实例;
}

// The installed callback; never null.
inline 交互接口& 交互() { return *detail::当前交互; }

// Installs `p` (nullptr restores the silent recording default) and returns
// the previous one. The caller keeps ownership.
inline 交互接口* 安装交互(交互接口* p) {
    return std::exchange(detail::当前交互, p ? p : &detail::默认交互实例);
}

// RAII for tests: installs a recording callback for the scope.
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
