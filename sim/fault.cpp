#include "sim/fault.h"

#include <algorithm>
#include <array>
#include <utility>

namespace sim {
namespace {

constexpr auto nameTable = std::to_array<std::pair<Fault, std::string_view>>({
    {Fault::none, "none"},
    {Fault::slow, "slow"},
    {Fault::silent, "silent"},
    {Fault::cutOff, "cutOff"},
    {Fault::unsteady, "unsteady"},
    {Fault::oversizeAnnounced, "oversizeAnnounced"},
    {Fault::oversizeUnannounced, "oversizeUnannounced"},
    {Fault::oversizeGzip, "oversizeGzip"},
    {Fault::oversizeDeflate, "oversizeDeflate"},
    {Fault::oversizeBrotli, "oversizeBrotli"},
    {Fault::oversizeZstd, "oversizeZstd"},
    {Fault::redirectSameOrigin, "redirectSameOrigin"},
    {Fault::redirectOversize, "redirectOversize"},
    {Fault::redirectOtherPort, "redirectOtherPort"},
    {Fault::redirectOtherHost, "redirectOtherHost"},
    {Fault::redirectOtherScheme, "redirectOtherScheme"},
    {Fault::redirectLoop, "redirectLoop"},
    {Fault::status401, "status401"},
    {Fault::status403, "status403"},
    {Fault::status404, "status404"},
    {Fault::status500, "status500"},
    {Fault::status503, "status503"},
    {Fault::html, "html"},
    {Fault::truncatedJson, "truncatedJson"},
    {Fault::deepNesting, "deepNesting"},
    {Fault::expiredAccount, "expiredAccount"},
    {Fault::connectionLimit, "connectionLimit"},
    {Fault::garbage, "garbage"},
    {Fault::notHttp, "notHttp"},
    {Fault::empty, "empty"},
    {Fault::wrongShape, "wrongShape"},
    {Fault::invalidUtf8, "invalidUtf8"},
    {Fault::ignoresCategory, "ignoresCategory"},
    {Fault::hugeImage, "hugeImage"},
});

}  // namespace

std::string_view faultName(Fault fault) {
  const auto found =
      std::ranges::find(nameTable, fault, &std::pair<Fault, std::string_view>::first);
  return found == nameTable.end() ? std::string_view() : found->second;
}

std::optional<Fault> faultNamed(std::string_view name) {
  const auto found =
      std::ranges::find(nameTable, name, &std::pair<Fault, std::string_view>::second);
  if (found == nameTable.end()) return std::nullopt;
  return found->first;
}

std::vector<std::string_view> faultNames() {
  std::vector<std::string_view> names;
  for (const auto& [fault, name] : nameTable) names.push_back(name);
  return names;
}

}  // namespace sim
