#include "provider/catalog_by_category.h"

#include <algorithm>

#include "net/http_transport.h"
#include "provider/catalog_parsing.h"

namespace vantor {

using namespace Qt::StringLiterals;

namespace {

// With that of the categories they bound memory, time and traffic, at several times what the
// largest providers have.
constexpr qsizetype mostAnswered = 32 * defaultBodyLimit;  // bytes
constexpr std::size_t mostMemory = 4 * defaultBodyLimit;   // bytes, of the catalogue

}  // namespace

std::vector<AskedCategory> CatalogByCategory::readCategories(QByteArray answer,
                                                             const std::stop_token& stop) {
  const bool all = parseCategories(std::move(answer), entries_.builder(), stop);
  const std::vector<MediaCategory>& named = entries_.builder().categories();
  if (named.empty() || !all) return {};
  std::vector<AskedCategory> asked;
  for (const MediaCategory& category : named) asked.push_back({category.id});
  const QString none = u"0"_s;
  if (std::ranges::find(named, none, &MediaCategory::id) == named.end())
    asked.push_back({none, false});
  progress_.categories = asked.size();
  return asked;
}

CatalogPart CatalogByCategory::readEntries(QByteArray answer, const std::stop_token& stop) {
  answered_ += answer.size();
  if (answered_ > mostAnswered) throw OversizedBody();
  entries_.read(std::move(answer), stop);
  if (entries_.builder().memory() > mostMemory) throw OversizedBody();
  ++progress_.answers;
  progress_.entries = entries_.size();
  CatalogPart part{progress_, std::nullopt};
  // Each is a copy: so many more that all of them together cost no more than two of the last.
  if (entries_.size() > 2 * shown_ && progress_.answers < progress_.categories) {
    shown_ = entries_.size();
    part.soFar = whole();
  }
  return part;
}

Catalog CatalogByCategory::whole() const {
  return entries_.builder().inOrder(entries_.order(), std::chrono::system_clock::now());
}

}  // namespace vantor
