// The statements about the day's row of t_sitemno that customer studies and
// samples send alike, with the values put in, for the tests of both.
#ifndef CORVANE_TESTS_CUSTOMERS_DAY_ROW_SQL_H_
#define CORVANE_TESTS_CUSTOMERS_DAY_ROW_SQL_H_

#include <string>

namespace corvane::testing {

inline std::string InsertCounterSql(const std::string& name, const std::string& no,
                                    const std::string& day) {
  return "insert into t_sitemno values ('" + name + "' ,'" + no + "','" + day + "')";
}
inline std::string UpdateCounterSql(const std::string& no, const std::string& day,
                                    const std::string& name) {
  return "update t_sitemno set F_No='" + no + "' where F_FnDate='" + day + "' and F_TableName='" +
         name + "'";
}
inline std::string RemoveCounterSql(const std::string& day, const std::string& name) {
  return "delete from t_sitemno where F_FnDate ='" + day + "' and F_TableName='" + name + "'";
}
inline std::string QueryConditionSql(const std::string& name, const std::string& day) {
  return "select * from t_sitemno where F_TableName='" + name + "'and F_FnDate='" + day + "'";
}

}  // namespace corvane::testing

#endif  // CORVANE_TESTS_CUSTOMERS_DAY_ROW_SQL_H_
