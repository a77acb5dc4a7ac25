// The road of customer studies and samples: the goods types, the day's number
// asked of t_sitemno, a first and a second document of the day stored with
// the right Istatus, the listings, a change and a delete that rolls the day's
// number back.
#include <iostream>
#include <string>

#include "examples/demo.h"

namespace demo {
namespace {

using namespace corvane;

// The first number of a day as this client composes it: yyyymmdd and two
// digits. (The library takes whatever number the client chooses.)
double FirstNumberOf(const Date& day) {
  const Date::Parts p = day.ToParts();
  return (p.year * 10000.0 + p.month * 100.0 + p.day) * 100.0 + 1;
}

// The next number of the day and the Istatus that goes with it: 0 when the
// day has no row in t_sitemno yet, 1 when it has one.
struct Turn {
  double number;
  std::int16_t Istatus;
};
Turn NextOf(std::int16_t condition, const clsEntSitemNo& counter, const Date& day) {
  if (condition == 1) return Turn{counter.no + 1, 1};
  return Turn{FirstNumberOf(day), 0};
}

void PrintStudy(const clsEntBCStudy& s) {
  std::cout << "     study " << Text(s.InvestNo) << " of " << Text(s.InvestDate) << ", customer "
            << s.CustNo << ", led by " << s.Director << ", marks " << s.SendQc << "/"
            << s.SendDate << "/" << s.Service << "/" << s.Result << ", '" << s.Suggestion
            << "'\n";
}

void PrintSample(const clsEntBSample& s) {
  std::cout << "     sample " << Text(s.NumNo) << " for " << s.Custno << ": " << s.ItemName
            << " (" << s.SampleType << "), qty " << s.Qty << " sent " << s.SendQty
            << ", wanted " << Text(s.ReqDate) << ", entered by " << s.Tabler << " on "
            << Text(s.Tabletime) << ", place '" << s.PlaceID << "'\n";
}

}  // namespace

void Studies() {
  using namespace corvane;
  Section("Customer studies, numbered for the day");
  clsDataBCStudy studies;
  const Date today = Call("QueryDate", [&] { return studies.QueryDate(); });

  clsEntSitemNo counter;
  auto condition = Call("QueryCondition t_bcstudy today", [&] {
    return studies.QueryCondition(today, "t_bcstudy", counter);
  });
  Turn turn = NextOf(condition, counter, today);
  std::cout << "     the client takes number " << Text(turn.number) << " with Istatus "
            << turn.Istatus << "\n";
  clsEntBCStudy study;
  study.InvestNo = turn.number;
  study.InvestDate = today;
  study.CustNo = "C001";
  study.Director = "wang";
  study.SendQc = 4;
  study.SendDate = 3;
  study.Service = 5;
  study.Result = 4;
  study.Suggestion = "ship samples by air";
  study.SendQcDesc = "few defects";
  study.SendDateDesc = "one week late";
  study.ServiceDesc = "quick answers";
  Call("AddRecord", [&] { return studies.AddRecord(study, "t_bcstudy", turn.Istatus); });
  Call("AddRecord of the same number (refused)", [&] {
    return studies.AddRecord(study, "t_bcstudy", 1);
  });

  condition = Call("QueryCondition t_bcstudy today", [&] {
    return studies.QueryCondition(today, "t_bcstudy", counter);
  });
  std::cout << "     t_sitemno holds " << Text(counter.no) << "\n";
  turn = NextOf(condition, counter, today);
  std::cout << "     the client takes number " << Text(turn.number) << " with Istatus "
            << turn.Istatus << "\n";
  clsEntBCStudy second = study;
  second.InvestNo = turn.number;
  second.CustNo = "C002";
  second.Director = "li";
  Call("AddRecord of the second study of the day", [&] {
    return studies.AddRecord(second, "t_bcstudy", turn.Istatus);
  });

  Call("QueryAll (customers with studies)", [&] {
    Collection<clsEntBCStudy> all;
    const auto r = studies.QueryAll(&all);
    for (const auto& s : all) std::cout << "     customer " << s->CustNo << "\n";
    return r;
  });
  Call("QueryAlldetaile C001", [&] {
    Collection<clsEntBCStudy> numbers;
    const auto r = studies.QueryAlldetaile(&numbers, "C001");
    for (const auto& s : numbers) std::cout << "     study " << Text(s->InvestNo) << "\n";
    return r;
  });
  clsEntBCStudy back;
  Call("BackEntity " + Text(study.InvestNo), [&] {
    return studies.BackEntity(back, Text(study.InvestNo));
  });
  back.InvestNo = study.InvestNo;
  PrintStudy(back);
  clsEntBCStudy largest;
  Call("QueryMaxItem", [&] { return studies.QueryMaxItem(largest); });
  PrintStudy(largest);
  clsEntBCStudy of_today;
  Call("QueryMaxItemDelete today", [&] { return studies.QueryMaxItemDelete(of_today, today); });
  std::cout << "     largest of today: " << Text(of_today.InvestNo) << "\n";
  second.Suggestion = "visit again in spring";
  Call("UpdateRecord '" + Text(second.InvestNo) + "x' (read by its leading digits)", [&] {
    return studies.UpdateRecord(second, Text(second.InvestNo) + "x");
  });
  Call("UpdateRecord of an unknown number (reports, 2)", [&] {
    return studies.UpdateRecord(second, "abc");
  });
  Call("DeleteRecord of the second study, status 1 (the day's row follows)", [&] {
    return studies.DeleteRecord(second, 1, "t_bcstudy");
  });
  Call("QueryCondition t_bcstudy today", [&] {
    return studies.QueryCondition(today, "t_bcstudy", counter);
  });
  std::cout << "     t_sitemno holds " << Text(counter.no) << "\n";

  Section("Samples, numbered for the day");
  clsDataBSample samples;
  Call("QueryEGoodsType", [&] {
    Collection<clsEntEGoodsType> types;
    const auto r = samples.QueryEGoodsType(&types);
    for (const auto& t : types) std::cout << "     goods type " << t->GoodStype << "\n";
    return r;
  });
  condition = Call("QueryCondition t_bsample today", [&] {
    return samples.QueryCondition(today, "t_bsample", counter);
  });
  turn = NextOf(condition, counter, today);
  std::cout << "     the client takes number " << Text(turn.number) << " with Istatus "
            << turn.Istatus << "\n";
  clsEntBSample sample;
  sample.NumNo = turn.number;
  sample.Appgist = "drawing D-12";
  sample.AskEmp = "zhao";
  sample.Citemno = "C001-GEAR";
  sample.CreaDate = today;
  sample.Custno = "C001";
  sample.Deform = 1;
  sample.ItemDesc = "gear, 40 teeth";
  sample.ItemName = "gear";
  sample.ModeDesc = "cast and machined";
  sample.ModelNo = "M-40";
  sample.Modoption = 2;
  sample.Qty = 5;
  sample.ReqDate = Date(today.Serial() + 14);
  sample.Samask = "polished";
  sample.SampleType = "metal";
  sample.SendQty = 0;
  sample.Tabler = "wang";
  sample.Tabletime = today;
  sample.Timber = "steel 45";
  sample.TimberNumber = "S45";
  sample.Useful = "fair";
  sample.PlaceID = "H1";
  Call("AddRecord", [&] { return samples.AddRecord(sample, "t_bsample", turn.Istatus, today); });

  condition = Call("QueryCondition t_bsample today", [&] {
    return samples.QueryCondition(today, "t_bsample", counter);
  });
  turn = NextOf(condition, counter, today);
  std::cout << "     the client takes number " << Text(turn.number) << " with Istatus "
            << turn.Istatus << "\n";
  clsEntBSample wooden = sample;
  wooden.NumNo = turn.number;
  wooden.ItemName = "handle";
  wooden.SampleType = "wood";
  wooden.Timber = "oak";
  Call("AddRecord of the second sample of the day", [&] {
    return samples.AddRecord(wooden, "t_bsample", turn.Istatus, today);
  });

  clsEntBSample got;
  got.NumNo = sample.NumNo;
  Call("GetSampleRecord " + Text(sample.NumNo), [&] { return samples.GetSampleRecord(got); });
  PrintSample(got);
  Call("QueryAllCustmo (customers with samples)", [&] {
    Collection<clsEntBSample> all;
    const auto r = samples.QueryAllCustmo(&all);
    for (const auto& s : all) std::cout << "     customer " << s->Custno << "\n";
    return r;
  });
  Call("QueryAlldetaile C001", [&] {
    Collection<clsEntBSample> of_customer;
    const auto r = samples.QueryAlldetaile(&of_customer, "C001");
    for (const auto& s : of_customer) PrintSample(*s);
    return r;
  });
  clsEntBSample largest_sample;
  Call("QueryMaxItem", [&] { return samples.QueryMaxItem(largest_sample); });
  PrintSample(largest_sample);
  clsEntBSample sample_of_today;
  Call("QueryMaxItemDelete today", [&] {
    return samples.QueryMaxItemDelete(sample_of_today, today);
  });
  std::cout << "     largest of today: " << Text(sample_of_today.NumNo) << "\n";
  wooden.SendQty = 2;
  wooden.SenDate = today;
  Call("UpdateRecord " + Text(wooden.NumNo) + " (two sent)", [&] {
    return samples.UpdateRecord(wooden, Text(wooden.NumNo));
  });
  Call("DeleteRecord of the second sample, status 1 (the day's row follows)", [&] {
    return samples.DeleteRecord(wooden, 1, "t_bsample");
  });
  Call("QueryCondition t_bsample today", [&] {
    return samples.QueryCondition(today, "t_bsample", counter);
  });
  std::cout << "     t_sitemno holds " << Text(counter.no) << "\n";
}

}  // namespace demo
