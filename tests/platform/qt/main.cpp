// main.cpp - runs the tests of the Qt adapter within an application that needs no display.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // Programs that the tests start speak English on every machine.
  qputenv("LANGUAGE", "en");
  QApplication Application(argc, argv);
  return RUN_ALL_TESTS();
}
