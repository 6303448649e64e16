// SPDX-License-Identifier: MIT
#include "model.h"

#include "session.h"

namespace vnb::test {
namespace {

struct StepKind {
  int weight;
  std::string (Session::*perform)(Dice dice);
};

constexpr std::array kinds{
    StepKind{10, &Session::select},      StepKind{10, &Session::move},
    StepKind{8, &Session::doubleClick},  StepKind{4, &Session::hoverDevice},
    StepKind{4, &Session::hoverSurface}, StepKind{3, &Session::clickSurface},
    StepKind{5, &Session::addByButton},  StepKind{8, &Session::addByDrag},
    StepKind{6, &Session::linkAnywhere}, StepKind{4, &Session::listSubnet},
    StepKind{2, &Session::addData},      StepKind{6, &Session::guardByLock},
    StepKind{5, &Session::retype},       StepKind{4, &Session::removeLink},
    StepKind{6, &Session::removeByMenu}, StepKind{2, &Session::removeByKey},
    StepKind{1, &Session::startAnew},    StepKind{2, &Session::open},
    StepKind{2, &Session::save},         StepKind{2, &Session::scroll},
    StepKind{4, &Session::togglePanel},  StepKind{10, &Session::editDevice},
    StepKind{10, &Session::editLink},    StepKind{5, &Session::editSubnets},
    StepKind{3, &Session::editHeader},
};

} // namespace

std::discrete_distribution<std::size_t> stepWeights() {
  std::vector<int> weights;
  weights.reserve(kinds.size());
  for (const StepKind &kind : kinds)
    weights.push_back(kind.weight);
  return {weights.begin(), weights.end()};
}

Outcome run(const std::vector<Step> &steps) {
  Session session;
  Outcome outcome;
  for (const Step &step : steps) {
    outcome.log.push_back(session.perform(kinds[step.kind].perform, step));
    outcome.difference = session.difference();
    if (outcome.failed())
      break;
  }
  return outcome;
}

} // namespace vnb::test
