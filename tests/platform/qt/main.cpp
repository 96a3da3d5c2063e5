// main.cpp - runs the tests of the Qt adapter within an application that needs no display.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication Application(argc, argv);
  return RUN_ALL_TESTS();
}
