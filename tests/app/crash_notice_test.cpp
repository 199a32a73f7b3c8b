#include <QFile>

#include "app/crash_notice.h"
#include "support/awaited.h"
#include "support/files.h"
#include "support/model_fixture.h"

namespace vantor::test {
namespace {

TEST(CrashNotice, WaitsForTheSignInSheetAndOtherNoticesAndComesOnce) {
  ModelFixture fixture;
  const QString folder = fixture.home.filePath(u"notes"_s);
  writeFile(folder + u"/crash-1.new"_s);
  AppModel& model = fixture.launch();
  model.setShowingConnect(true);
  const CrashNotice notice(model, fixture.worker, folder);
  settle();
  awaited<Done>(fixture.worker.run([] {}));  // behind the look for reports
  settle();
  EXPECT_EQ(model.notice(), std::nullopt);
  model.tell(u"Something else."_s);
  model.setShowingConnect(false);
  settle();
  EXPECT_EQ(model.notice(), u"Something else."_s);
  model.clearNotice();
  EXPECT_TRUE(
      eventually([&] { return model.notice().value_or(QString()).endsWith(u"/crash-1.txt."_s); }));
  EXPECT_TRUE(eventually([&] { return QFile::exists(folder + u"/crash-1.txt"_s); }));
  model.clearNotice();
  EXPECT_EQ(model.notice(), std::nullopt);
}

}  // namespace
}  // namespace vantor::test
