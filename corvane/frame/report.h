/// \file
/// Reports: the modal message a method shows when it fails. The host decides
/// how a report is shown; the default writes it to standard error and, when
/// standard input is a terminal, waits for Enter, which stands for the OK
/// button of a message box.
#ifndef CORVANE_FRAME_REPORT_H_
#define CORVANE_FRAME_REPORT_H_

#include <functional>
#include <string>

#include "corvane/export.h"

namespace corvane {

/// A report: the words, the style and the title of a modal message box.
struct Report {
  std::string text;  ///< The words shown.
  int style = 0;  ///< 64 information, 16 critical, 0 plain
  std::string title;  ///< The title of the box.

  /// Equal when text, style and title are equal.
  friend bool operator==(const Report&, const Report&) = default;
};

/// Installs the handler that shows reports; an empty handler restores the
/// default. The handler runs on the calling thread inside the failing method,
/// which returns only when the handler does.
CORVANE_EXPORT void SetReportHandler(std::function<void(const Report&)> handler);

/// Shows a report through the installed handler.
CORVANE_EXPORT void ShowReport(const Report& report);

}  // namespace corvane

#endif  // CORVANE_FRAME_REPORT_H_
