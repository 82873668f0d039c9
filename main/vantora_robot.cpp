// The program that plays a script, without a screen or in real windows.

#include "backends/qt/desktop/qt_app.h"
#include "main/resource_check.h"
#include "main/story_stage.h"
#include "main/window_platform.h"
#include "robot/robot.h"

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>

namespace {

struct Options {
  bool Windows = false, Trace = false;
  std::string Script;
};

Options Read(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word == "--windows") {
      options.Windows = true;
    } else if (word == "--trace") {
      options.Trace = true;
    } else {
      options.Script = word;
    }
  }
  return options;
}

int Play(const Options& options, vantora::RobotStage& stage) {
  std::ifstream file(options.Script, std::ios::binary);
  if (!file) {
    std::cerr << "vantora-robot: cannot read " << options.Script << "\n";
    return 2;
  }
  const std::string script{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const std::string folder = std::filesystem::current_path().string();
  vantora::Robot robot(options.Script, folder, stage, std::cout, options.Trace);
  if (robot.Run(script)) return 0;
  std::cerr << robot.Error() << "\n";
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const Options options = Read(argc, argv);
  if (options.Script.empty()) {
    std::cerr << "usage: vantora-robot [--windows] [--trace] SCRIPT\n";
    return 2;
  }
  const std::filesystem::path resources = vantora::ResourceFolder();
  const std::filesystem::path incomplete = vantora::IncompleteResource(resources);
  if (!incomplete.empty()) {
    std::cerr << "vantora-robot: " << incomplete.lexically_normal().string()
              << " is missing or incomplete\n";
    return 1;
  }
  if (!options.Windows) {
    vantora::StoryStage<vantora::PrintingPlatform> stage(resources);
    return Play(options, stage);
  }
  if (!vantora::QtApp::HasScreen()) setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const vantora::QtApp app(argc, argv);
  vantora::StoryStage<vantora::WindowPlatform> stage(resources);
  return Play(options, stage);
}
