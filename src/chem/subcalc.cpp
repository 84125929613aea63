// The calculation run: the order of the steps, and what they share.
#include "chem/subcalc.h"

namespace calvora {

subcalc::subcalc(AnalysisRecord& record, const int& lastField, NarrowTexts& narrow,
                 Questions& questions)
    : record_(record), lastField_(lastField), narrow_(narrow), questions_(questions) {}

void subcalc::rechenlauf() {
  // The order is part of the behaviour: step 1 uses the carbonate species of the previous run,
  // step 8 the hardness before step 9 completes it, step 10 what 2 and 9 have just computed.
  static constexpr std::array kSteps{
      &subcalc::ph_aus_lf,  &subcalc::c_formen,  &subcalc::phaus_c, &subcalc::ph_beit,
      &subcalc::ph_aus_ksr, &subcalc::phausks82, &subcalc::s_index, &subcalc::co2agg,
      &subcalc::secamg,     &subcalc::khnkh,
  };
  for (const auto step : kSteps) (this->*step)();
}

void subcalc::clear(std::initializer_list<int> indices) {
  for (const int index : indices) record_.clearField(index);
}

bool subcalc::store(int index, double result, Format format) {
  const auto value = FixedPoint::tryFromDouble(result);
  if (!value) {
    record_.clearField(index);
    return false;
  }
  record_.value[index] = *value;
  record_.text[index] = numberText(result, format);
  return true;
}

void subcalc::storeValue(int index, double result) {
  record_.value[index] = FixedPoint::tryFromDouble(result).value_or(FixedPoint{});
}

}  // namespace calvora
