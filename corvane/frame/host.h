/// \file
/// The hooks through which the host program configures the library: where the
/// business database is, which folder stands for the library's own folder, and
/// who watches the statements sent. The report handler is in report.h.
#ifndef CORVANE_FRAME_HOST_H_
#define CORVANE_FRAME_HOST_H_

#include <functional>
#include <string>

#include "corvane/export.h"

namespace corvane {

/// The connection text of the business database: items "SERVER=", "PORT=",
/// "SOCKET=", "DATABASE=", "UID=", "PWD=" separated by ";". "SERVER=" may name
/// the nodes of a Galera cluster, "host[:port],host[:port],..." (PORT= for
/// those without a port): the first synced one is used, in the text's order
/// or, with "LOADBALANCE=random", from a random one, and a dropped connection
/// goes on with the next. Until it is set, sessions read my.ini in the parent
/// of the application path (see below): server, business database name, user,
/// password; port 3306. An empty text returns to my.ini.
CORVANE_EXPORT void SetSessionConnectionString(std::string text);
/// The connection text set by SetSessionConnectionString; empty while
/// sessions read my.ini.
CORVANE_EXPORT std::string SessionConnectionString();

/// The folder that stands for the library's own folder. Default: the folder of
/// the loaded libcorvane. An empty text restores the default.
CORVANE_EXPORT void SetApplicationPath(std::string folder);
/// The folder that stands for the library's own folder: the one set, or the
/// folder of the loaded libcorvane.
CORVANE_EXPORT std::string ApplicationPath();

/// What kind of statement the library sends.
enum class StatementKind {
  kCommand,    ///< a statement of a repository method, as the method wrote it
  kRowChange,  ///< an insert, update or delete the recordset writes for AddNew,
               ///< a column write or Delete
  kCatalog,    ///< a question about a table's columns and key, asked once per
               ///< table and connection before the first row change
};

/// Receives every statement before it is sent, on the calling thread. An empty
/// observer turns observation off.
using StatementObserver = std::function<void(StatementKind kind, const std::string& text)>;
/// Installs the observer that receives every statement before it is sent, with
/// its kind; an empty observer turns observation off.
CORVANE_EXPORT void SetStatementObserver(StatementObserver observer);

}  // namespace corvane

#endif  // CORVANE_FRAME_HOST_H_
