// Corvane: the data layer of the manufacturing and sales management system.
// Including this header gives every public class of the library.
#ifndef CORVANE_CORVANE_H_
#define CORVANE_CORVANE_H_

#include "corvane/frame/collection.h"
#include "corvane/frame/connection.h"
#include "corvane/frame/date.h"
#include "corvane/frame/error.h"
#include "corvane/frame/host.h"
#include "corvane/frame/recordset.h"
#include "corvane/frame/report.h"
#include "corvane/frame/session.h"
#include "corvane/frame/text.h"
#include "corvane/frame/variant.h"

#include "corvane/entities/order_change.h"
#include "corvane/entities/order_header.h"
#include "corvane/entities/order_line.h"
#include "corvane/entities/order_type.h"
#include "corvane/entities/sitemno.h"

#include "corvane/orders/order_change.h"
#include "corvane/orders/order_header.h"
#include "corvane/orders/order_lines.h"
#include "corvane/orders/order_type.h"

#include "corvane/quotations/quotation_attach.h"

#endif  // CORVANE_CORVANE_H_
