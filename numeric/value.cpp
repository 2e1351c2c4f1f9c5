#include "numeric/value.h"

QString 数值::文本() const {
    switch (类型_) {
    case 类型::空: return QString();
    case 类型::文本: return 文本_;
    case 类型::十进制: return 十进制_.toText();
    case 类型::双精度: return 双精度文本(双精度_);
    case 类型::整数: return QString::number(整数_);
    }
    return QString();
}
