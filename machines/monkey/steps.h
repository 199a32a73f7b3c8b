#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

namespace vantor::monkey {

/// The kinds of things that a monkey does. actions.cpp says what each is.
enum class Act : unsigned char {
  signIn,
  key,
  hold,
  type,
  clickItem,
  doubleClickItem,
  openMenu,
  point,
  wheel,
  drag,
  resize,
  state,
  navigate,
  answer,
  answerAll,
  watch,
  engine,
  pass,
  setClock,
  animate,
  bus,
  signOut,
  connect,
  launch,
  credentials,
  network,
};

/// One thing that a monkey does. The numbers choose among what there is when its turn comes, so
/// that a run of steps remains one, whichever are left out.
struct Step {
  Act act;
  std::uint32_t a;
  std::uint32_t b;
};

/// The same ones for the same seed, on every machine.
std::vector<Step> draw(std::uint32_t seed, int count);

/// One line, "key 12 7", and back; absent where it is none.
QString lineOf(const Step& step);
std::optional<Step> stepOf(const QString& line);

}  // namespace vantor::monkey
