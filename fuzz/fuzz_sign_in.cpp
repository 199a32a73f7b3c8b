#include <rapidjson/document.h>

#include "cost.h"
#include "input.h"
#include "provider/provider_client.h"

using namespace vantor;

namespace {

/// The last member of that name: of equal ones the last counts.
const rapidjson::Value* member(const rapidjson::Value& object, std::string_view name) {
  const rapidjson::Value* found = nullptr;
  for (const auto& each : object.GetObject())
    if (name == std::string_view(each.name.GetString(), each.name.GetStringLength()))
      found = &each.value;
  return found;
}

/// Whether another reader sees that the answer accepts the account, as far as it can read it.
bool accepts(const QByteArray& answer) {
  rapidjson::Document document;
  document.Parse<rapidjson::kParseFullPrecisionFlag | rapidjson::kParseIterativeFlag>(
      answer.constData(), static_cast<std::size_t>(answer.size()));
  // JSON has room for both.
  if (document.GetParseError() == rapidjson::kParseErrorStringUnicodeSurrogateInvalid ||
      document.GetParseError() == rapidjson::kParseErrorNumberTooBig)
    return true;
  if (document.HasParseError() || !document.IsObject()) return false;
  const rapidjson::Value* info = member(document, "user_info");
  if (info == nullptr || !info->IsObject()) return false;
  const rapidjson::Value* auth = member(*info, "auth");
  const rapidjson::Value* status = member(*info, "status");
  if (auth == nullptr || status == nullptr || !status->IsString()) return false;
  const bool isOne = auth->IsBool()     ? auth->GetBool()
                     : auth->IsNumber() ? auth->GetDouble() == 1
                                        : auth->IsString() && auth->GetString() == std::string("1");
  return isOne && QByteArray(status->GetString()).toLower() == "active";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Yardstick yardstick(
      Harmless{R"({"user_info":{"auth":1,"status":"Active","allowed_output_formats":[)",
               R"("m3u8",)", R"("ts"]}})"},
      [](const QByteArray& bytes) {
        mayRefuse([&] {
          const ProviderDetails details = parseSignIn(bytes);
          mustHold(accepts(bytes));
          mustHold(!details.expires || *details.expires > ProviderTime());
        });
      });
  const qsizetype memory = yardstick.measure(inputBytes(data, size));
  mustHold(memory <= 65'536 + 64 * static_cast<qsizetype>(size));
  return 0;
}
