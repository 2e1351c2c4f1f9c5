// orvane-cli: the headless companion. Each subcommand lives in its own file
// of this folder and registers itself here; main dispatches on the first
// argument. No widgets are linked.
#include "cli/commands.h"

#include <QCoreApplication>
#include <QTextStream>
#include <cstdio>

void cli::标准错误交互::告知(const QString& 文本, const QString& 标题) {
    QTextStream err(stderr);
    if (!标题.isEmpty()) err << "[" << 标题 << "] ";
    err << 文本 << "\n";
}

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QStringList args = app.arguments();
    args.removeFirst();
    QTextStream out(stdout), err(stderr);
    const auto& table = cli::命令表();
    auto usage = [&](QTextStream& s) {
        s << "用法 usage: orvane-cli COMMAND [OPTIONS] ...\n命令 commands:\n";
        for (const auto& c : table) s << "  " << c.名称 << "  " << c.说明 << "\n";
        s << "orvane-cli COMMAND --help 查看各命令的说明 (details of one command).\n";
    };
    if (args.isEmpty() || args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
        usage(args.isEmpty() ? err : out);
        return args.isEmpty() ? 2 : 0;
    }
    for (const auto& c : table) {
        if (c.名称 == args[0]) {
            args.removeFirst();
            return c.执行(args);
        }
    }
    err << "未知命令 unknown command: " << args[0] << "\n";
    usage(err);
    return 2;
}
