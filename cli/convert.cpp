// orvane-cli convert: the workbench's conversion within one coordinate
// system, on a file or standard input, without the screen.
#include "cli/commands.h"
#include "geodesy/projection.h"
#include "geodesy/workbench.h"
#include "numeric/circular.h"
#include "numeric/decimal.h"
#include "numeric/textfile.h"
#include "numeric/interaction.h"

#include <QFile>
#include <QTextStream>

#include <cstdio>

namespace {

const char* const 说明文本 =
    "用法 usage: orvane-cli convert [选项 options] [FILE]\n"
    "\n"
    "在同一坐标系内转换坐标清单（工作台\"相同坐标系内转换\"）。读 FILE 或标准输入，\n"
    "新的右框文本（表头和成果行）写到标准输出，整理后的左框文本写到标准错误。\n"
    "Converts a coordinate list within one system, as the workbench does. Reads\n"
    "FILE or standard input (UTF-8, UTF-16 with BOM, or GBK/GB18030); prints the\n"
    "result box (head and rows, CR LF line ends) on stdout and the cleaned input\n"
    "list on stderr.\n"
    "\n"
    "  --system KEY      BJ 北京54 (默认 default), XA 西安80, 2K 国家2000, WGS 中国WGS84,\n"
    "                    WGSN, WGSS, UTMN, UTMS\n"
    "  --mode MODE       bl2xy 经纬度→公里网 (默认 default), xy2bl 公里网→经纬度,\n"
    "                    xy2xy 公里网换带 (only BJ XA 2K WGS)\n"
    "  --left M          输入中央子午线 input meridian, packed degrees (117, 70.30 = 70°30′);\n"
    "                    默认 default 117\n"
    "  --right M         输出中央子午线 output meridian, packed degrees; 默认 default 117\n"
    "  --in-order  YXH|XYH   输入字段顺序 input field order (默认 default YXH)\n"
    "  --out-order YXH|XYH   输出字段顺序 output field order (默认 default YXH)\n"
    "  --separator C     输入分隔符 input separator, one character or TAB (默认 default \",\")\n"
    "  --no-names        成果不带序号 results without the name column\n"
    "  --limit N         最多处理 N 个点 convert at most N points (默认 default: all)\n"
    "\n"
    "每行：[序号,] 值, 值 [, 高程]；序号须以字母或汉字开头。经纬度可写作 117°45′14.1234″\n"
    "或度分秒数 117.45141234。A line: [name,] value, value [, height]; a name begins\n"
    "with a letter or a Chinese character. Failing points show zeros and a note.\n"
    "退出码 exit status: 0 converted, 1 nothing converted, 2 bad options or input file.\n";

bool 读子午线(const QString& s, double& 度) {
    double p = 0;
    if (!文本转双精度(s, p) || !(p >= -180 && p <= 180)) return false;
    度 = 度转梯度双精度(p);
    return true;
}

bool 读顺序(const QString& s, QString& 顺序) {
    const QString o = s.trimmed().toUpper();
    if (o != "YXH" && o != "XYH") return false;
    顺序 = o;
    return true;
}

int 转换命令(const QStringList& args) {
    QTextStream err(stderr);
    坐标转换设置 设置;
    QString 文件;
    auto 错 = [&](const QString& m) {
        err << "convert: " << m << "\n" << "orvane-cli convert --help 查看说明 (for help).\n";
        return 2;
    };
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        auto 值 = [&](QString& v) {
            if (i + 1 >= args.size()) return false;
            v = args[++i];
            return true;
        };
        QString v;
        if (a == "--help" || a == "-h") {
            QTextStream(stdout) << QString::fromUtf8(说明文本);
            return 0;
        } else if (a == "--system") {
            if (!值(v) || !是已知椭球键(v)) return 错("坐标系未知 unknown system: " + v);
            设置.椭球键 = v.trimmed().toUpper();
            设置.坐标系名称 = 坐标系名称(设置.椭球键);
        } else if (a == "--mode") {
            if (!值(v)) return 错("--mode 缺少值 needs a value");
            if (v == "bl2xy") 设置.OptionA = 0;
            else if (v == "xy2bl") 设置.OptionA = 1;
            else if (v == "xy2xy") 设置.OptionA = 2;
            else return 错("模式未知 unknown mode: " + v);
        } else if (a == "--left") {
            if (!值(v) || !读子午线(v, 设置.左中央子午线)) return 错("中央子午线有误 bad meridian: " + v);
        } else if (a == "--right") {
            if (!值(v) || !读子午线(v, 设置.右中央子午线)) return 错("中央子午线有误 bad meridian: " + v);
        } else if (a == "--in-order") {
            if (!值(v) || !读顺序(v, 设置.左顺序)) return 错("顺序应为 order must be YXH or XYH: " + v);
        } else if (a == "--out-order") {
            if (!值(v) || !读顺序(v, 设置.右顺序)) return 错("顺序应为 order must be YXH or XYH: " + v);
        } else if (a == "--separator") {
            if (!值(v)) return 错("--separator 缺少值 needs a value");
            if (v.toUpper() == "TAB" || v == "\t") v = "TAB";
            else if (v.size() != 1 || v[0].unicode() < u' ') return 错("分隔符应为一个字符 separator must be one character or TAB");
            设置.分隔符 = v;
        } else if (a == "--no-names") {
            设置.带序号 = false;
        } else if (a == "--limit") {
            bool ok = false;
            if (!值(v)) return 错("--limit 缺少值 needs a value");
            const int n = v.toInt(&ok);
            if (!ok || n < 0) return 错("点数应为非负整数 limit must be a whole number >= 0: " + v);
            设置.点数上限 = n;
        } else if (a.startsWith("--") && a.size() > 2) {
            return 错("未知选项 unknown option: " + a);
        } else if (文件.isEmpty()) {
            文件 = a;
        } else {
            return 错("只能给一个文件 only one FILE");
        }
    }
    // Without --limit every point is converted (the screen stops at 200).
    bool 有上限 = args.contains("--limit");
    if (!有上限) 设置.点数上限 = 0;
    const QString 键 = 设置.椭球键;
    if (设置.OptionA == 2 && 键 != "BJ" && 键 != "XA" && 键 != "2K" && 键 != "WGS")
        return 错("换带只用于 BJ XA 2K WGS; zone change needs BJ, XA, 2K or WGS");

    QString 文本;
    if (文件.isEmpty() || 文件 == "-") {
        QFile in;
        if (!in.open(stdin, QIODevice::ReadOnly)) return 错("无法读标准输入 cannot read standard input");
        文本 = 解码文本字节(in.readAll());
    } else if (!读取文本文件(文件, 文本)) {
        return 错("无法读文件 cannot read file: " + 文件);
    }

    cli::标准错误交互 交互器{QString()};
    交互接口* 旧 = 安装交互(&交互器);
    const 坐标转换结果 r = 同系坐标转换(文本, 设置, QString());
    安装交互(旧);

    const QByteArray 右 = r.右文本.toUtf8(), 左 = r.左文本.toUtf8();
    std::fwrite(左.constData(), 1, static_cast<size_t>(左.size()), stderr);
    std::fputs("\n", stderr);
    std::fwrite(右.constData(), 1, static_cast<size_t>(右.size()), stdout);
    std::fflush(stdout);
    return r.已转换 ? 0 : 1;
}

cli::命令注册 注册{"convert", "同系坐标转换（经纬度/公里网/换带） coordinate conversion within one system", &转换命令};

}  // namespace
