/// \file
/// clsEntSitemNo: a row of t_sitemno, the last number issued for a kind of
/// document.
#ifndef CORVANE_ENTITIES_SITEMNO_H_
#define CORVANE_ENTITIES_SITEMNO_H_

#include <string>

#include "corvane/frame/date.h"

namespace corvane {

/// A row of t_sitemno, the last number issued for a kind of document.
struct clsEntSitemNo {
  double no = 0;          ///< F_no
  Date fndate;            ///< F_fndate
  std::string tablename;  ///< F_tablename
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_SITEMNO_H_
