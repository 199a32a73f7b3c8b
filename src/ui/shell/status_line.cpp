#include "ui/shell/status_line.h"

#include <algorithm>

#include "core/app_model.h"
#include "ui/shell/tv_shell.h"

namespace vantor {

using namespace Qt::StringLiterals;

StatusLine::StatusLine(AppModel& model, QObject* parent) : QObject(parent), model_(model) {
  for (const auto signal :
       {&AppModel::sectionChanged, &AppModel::categoryChanged, &AppModel::itemsChanged,
        &AppModel::loadingChanged, &AppModel::errorsChanged})
    connect(&model, signal, this, &StatusLine::changed);
}

QString StatusLine::label() const {
  const QString title = sectionTitle(model_);
  if (model_.category().isEmpty()) return u"All "_s + title.toLower();
  const Catalog catalog = model_.catalog();
  const auto& categories = catalog.categories();
  const auto found = std::find_if(categories.begin(), categories.end(), [&](const auto& category) {
    return category.id == model_.category();
  });
  return found == categories.end() ? title : found->name;
}

bool StatusLine::loading() const {
  const auto kind = model_.kind();
  return kind && model_.loading().contains(*kind);
}

QString StatusLine::count() const {
  const std::size_t size = model_.items().size();
  return QString::number(size) + (size == 1 ? u" item"_s : u" items"_s);
}

QString StatusLine::error() const {
  const auto kind = model_.kind();
  if (!kind) return {};
  const auto found = model_.errors().find(*kind);
  return found == model_.errors().end() ? QString() : found->second;
}

}  // namespace vantor
