/// \file
/// clsEntEGoodsType: one goods type of t_egoodstype.
#ifndef CORVANE_ENTITIES_GOODS_TYPE_H_
#define CORVANE_ENTITIES_GOODS_TYPE_H_

#include <string>

namespace corvane {

/// One goods type of t_egoodstype.
struct clsEntEGoodsType {
  std::string GoodStype;  ///< F_GoodStype
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_GOODS_TYPE_H_
