#include "quick/bridge/Kinds.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlListReference>
#include <gmock/gmock.h>
#include <memory>
#include <set>

namespace orrelo::test {
namespace {

std::string faultsOf(const QQmlComponent& component) {
  return component.errorString().toStdString();
}

TEST(ModuleTest, EachKindHasAFileOfItsNameThatCompiles) {
  QQmlEngine engine;
  const auto files = quick::allDelegates();
  EXPECT_FALSE(files.empty());
  EXPECT_EQ(std::set(files.begin(), files.end()).size(), files.size()) << "two kinds of one name";
  for (const auto& file : files) {
    const QQmlComponent component(&engine, file);
    EXPECT_TRUE(component.isReady()) << faultsOf(component);
  }
}

TEST(ModuleTest, AHostKeepsItsOwnTypesOfTheKitsNames) {
  QQmlEngine engine;
  engine.addImportPath(QStringLiteral(ORRELO_TEST_MODULES));
  QQmlComponent component(&engine);
  component.setData("import QtQuick\nimport Shop\nimport Orrelo\nOrreloHost { StackView {} }", QUrl());
  ASSERT_TRUE(component.isReady()) << faultsOf(component);
  const std::unique_ptr<QObject> host(component.create());
  const QQmlListReference content(host.get(), "content");
  ASSERT_EQ(content.count(), 1);
  EXPECT_EQ(content.at(0)->property("owner"), QStringLiteral("shop"));
  component.setData("import QtQuick\nimport Orrelo\nPressArea {}", QUrl());
  EXPECT_THAT(faultsOf(component), testing::HasSubstr("PressArea is not a type"));
}

}  // namespace
}  // namespace orrelo::test
