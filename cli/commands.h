// Registry of orvane-cli subcommands. A subcommand file defines its entry
// and registers it with a static 命令注册 object:
//     static cli::命令注册 reg{"calc", "一行说明 / one-line summary", &runCalc};
// The entry gets the arguments after the command name and returns the exit
// status. Stdout and stderr are UTF-8.
#pragma once

#include "numeric/interaction.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace cli {

struct 命令 {
    QString 名称;
    QString 说明;
    int (*执行)(const QStringList& args);
};

inline QList<命令>& 命令表() {
    static QList<命令> t;
    return t;
}

struct 命令注册 {
    命令注册(const char* 名称, const char* 说明, int (*执行)(const QStringList&)) {
        命令表().append({QString::fromUtf8(名称), QString::fromUtf8(说明), 执行});
    }
};

// Reads option 名 at args[i], written "--name=value" or "--name value" (then
// i moves past the value). False when args[i] is another argument. True when
// it is this option: 有值 tells whether a value was there, 值 holds it.
inline bool 取选项值(const QStringList& args, int& i, const QString& 名, QString& 值, bool& 有值) {
    const QString& a = args[i];
    if (a.startsWith(名 + u'=')) {
        值 = a.mid(名.size() + 1);
        有值 = true;
        return true;
    }
    if (a != 名) return false;
    if (i + 1 < args.size()) {
        值 = args[++i];
        有值 = true;
    }
    return true;
}

// Message boxes of the logic become lines on stderr ("[title] text"); every
// question is answered No, and the line says so with 否的说明.
class 标准错误交互 : public 交互接口 {
public:
    explicit 标准错误交互(QString 否的说明 = QStringLiteral(" （否）")) : 否的说明_(std::move(否的说明)) {}
    void 告知(const QString& 文本, const QString& 标题) override;
    bool 询问(const QString& 文本, const QString& 标题) override {
        告知(文本 + 否的说明_, 标题);
        return false;
    }
private:
    QString 否的说明_;
};

}  // namespace cli
