// The ask/tell callback: the few places where logic must speak to the user
// (the evaluator's message boxes, the integral's time prompt, yes/no
// confirmations) call through this, never a widget. The program installs a
// message-box implementation; the command-line companion one that writes to
// stderr; tests a recording one that answers as told. Until one is
// installed, nothing is shown and every question is answered No, which is
// the safe answer to each question the logic asks (go on with a long
// integral? overwrite? delete?).
#pragma once

#include <QString>
#include <utility>

class 交互接口 {
public:
    virtual ~交互接口() = default;
    // A plain message box with OK. 标题 may be empty (no title).
    virtual void 告知(const QString& 文本, const QString& 标题 = QString()) = 0;
    // A Yes/No box; true for Yes.
    virtual bool 询问(const QString& 文本, const QString& 标题 = QString()) = 0;
};

namespace detail {
class 静默交互 final : public 交互接口 {
public:
    void 告知(const QString&, const QString&) override {}
    bool 询问(const QString&, const QString&) override { return false; }
};
inline 静默交互 默认交互实例;            // used until the program installs its own
inline 交互接口* 当前交互 = &默认交互实例;
}  // namespace detail

// The installed callback; never null.
inline 交互接口& 交互() { return *detail::当前交互; }

// Installs `p` (nullptr restores the silent default) and returns the
// previous one. The caller keeps ownership.
inline 交互接口* 安装交互(交互接口* p) {
    return std::exchange(detail::当前交互, p ? p : &detail::默认交互实例);
}
