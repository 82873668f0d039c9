#include <gtest/gtest.h>

#include "backends/qt/desktop/qt_app.h"

#include <cstdlib>

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  testing::InitGoogleTest(&argc, argv);
  const vantora::QtApp app(argc, argv);
  return RUN_ALL_TESTS();
}
