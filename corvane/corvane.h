/// \file
/// Corvane: the data layer of the manufacturing and sales management system.
/// Including this header gives every public class of the library.
///
/// \namespace corvane
/// The repository classes, their entities and the frame they stand on.
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

#include "corvane/entities/cost_header.h"
#include "corvane/entities/cost_part.h"
#include "corvane/entities/cost_wage.h"
#include "corvane/entities/currency.h"
#include "corvane/entities/customer.h"
#include "corvane/entities/customer_study.h"
#include "corvane/entities/goods_type.h"
#include "corvane/entities/order_change.h"
#include "corvane/entities/order_header.h"
#include "corvane/entities/order_line.h"
#include "corvane/entities/order_type.h"
#include "corvane/entities/outsource_header.h"
#include "corvane/entities/outsource_line.h"
#include "corvane/entities/quotation_header.h"
#include "corvane/entities/quotation_line.h"
#include "corvane/entities/sales_person.h"
#include "corvane/entities/sample.h"
#include "corvane/entities/sitemno.h"
#include "corvane/entities/wage_sort.h"

#include "corvane/orders/order_change.h"
#include "corvane/orders/order_header.h"
#include "corvane/orders/order_lines.h"
#include "corvane/orders/order_type.h"

#include "corvane/quotations/quotation_attach.h"
#include "corvane/quotations/quotation_header.h"
#include "corvane/quotations/quotation_lines.h"

#include "corvane/outsource/outsource_header.h"
#include "corvane/outsource/outsource_lines.h"

#include "corvane/costing/cost_header.h"
#include "corvane/costing/cost_parts.h"
#include "corvane/costing/cost_wages.h"
#include "corvane/costing/wage_sort.h"

#include "corvane/customers/customer.h"
#include "corvane/customers/customer_study.h"
#include "corvane/customers/sales_people.h"
#include "corvane/customers/sample.h"

#endif  // CORVANE_CORVANE_H_
