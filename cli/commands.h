// Registry of orvane-cli subcommands. A subcommand file defines its entry
// and registers it with a static 命令注册 object:
//     static cli::命令注册 reg{"calc", "一行说明 / one-line summary", &runCalc};
// The entry gets the arguments after the command name and returns the exit
// status. Stdout and stderr are UTF-8.
#pragma once

#include "shell/interaction.h"

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
