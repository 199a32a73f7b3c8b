#include "machines/monkey/steps.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <random>

namespace vantor::monkey {
namespace {

using namespace Qt::StringLiterals;

struct Kind {
  Act act;
  QLatin1String name;
  unsigned weight;
};

// In the order of `Act`.
constexpr std::array kinds{
    Kind{Act::signIn, "sign-in"_L1, 2},
    Kind{Act::key, "key"_L1, 70},
    Kind{Act::hold, "hold"_L1, 8},
    Kind{Act::type, "type"_L1, 8},
    Kind{Act::clickItem, "click"_L1, 32},
    Kind{Act::doubleClickItem, "double-click"_L1, 6},
    Kind{Act::openMenu, "menu"_L1, 8},
    Kind{Act::point, "point"_L1, 10},
    Kind{Act::wheel, "wheel"_L1, 8},
    Kind{Act::drag, "drag"_L1, 6},
    Kind{Act::resize, "resize"_L1, 5},
    Kind{Act::state, "state"_L1, 4},
    Kind{Act::navigate, "navigate"_L1, 8},
    Kind{Act::answer, "answer"_L1, 30},
    Kind{Act::answerAll, "answer-all"_L1, 8},
    Kind{Act::watch, "watch"_L1, 12},
    Kind{Act::engine, "engine"_L1, 34},
    Kind{Act::pass, "pass"_L1, 20},
    Kind{Act::setClock, "set-clock"_L1, 3},
    Kind{Act::animate, "animate"_L1, 14},
    Kind{Act::bus, "bus"_L1, 12},
    Kind{Act::signOut, "sign-out"_L1, 2},
    Kind{Act::connect, "connect"_L1, 2},
    Kind{Act::launch, "launch"_L1, 1},
    Kind{Act::credentials, "credentials"_L1, 1},
    Kind{Act::network, "network"_L1, 3},
};

}  // namespace

std::vector<Step> draw(std::uint32_t seed, int count) {
  std::mt19937 random(seed);
  unsigned sum = 0;
  for (const Kind& kind : kinds) sum += kind.weight;
  std::vector<Step> steps;
  // One in four begins with nobody signed in.
  if (seed % 4 != 0) steps.push_back({Act::signIn, seed, seed});
  while (static_cast<int>(steps.size()) < count) {
    unsigned place = random() % sum;
    const auto* kind = kinds.begin();
    while (place >= kind->weight) place -= (kind++)->weight;
    const std::uint32_t a = random() % 10'000;
    steps.push_back({kind->act, a, static_cast<std::uint32_t>(random() % 10'000)});
  }
  return steps;
}

QString lineOf(const Step& step) {
  const auto& kind = kinds.at(static_cast<std::size_t>(step.act));
  return u"%1 %2 %3"_s.arg(kind.name).arg(step.a).arg(step.b);
}

std::optional<Step> stepOf(const QString& line) {
  const QStringList words = line.simplified().split(u' ');
  const auto* kind = std::find_if(kinds.begin(), kinds.end(),
                                  [&](const Kind& known) { return known.name == words.first(); });
  if (kind == kinds.end() || words.size() != 3) return std::nullopt;
  return Step{kind->act, words[1].toUInt(), words[2].toUInt()};
}

}  // namespace vantor::monkey
