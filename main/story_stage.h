// The robot's stage. It builds a platform for every start of the program, in the home folder of the
// script, and keeps the script's settings of screen, sound and writer between the starts.
#pragma once

#include "app/frmStartUp.h"
#include "app/programm.h"
#include "main/story_platform.h"
#include "main/windows.h"
#include "robot/robot_stage.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>

namespace vantora {

template <typename Platform>
class StoryStage final : public RobotStage {
 public:
  explicit StoryStage(std::filesystem::path resourceFolder)
      : resourceFolder_(std::move(resourceFolder)) {}

  void Home(const std::string& folder) override {
    std::filesystem::create_directories(folder);
    home_ = std::filesystem::absolute(folder);
    Renew();
  }
  void Screen(int width, int height) override {
    Now().display.PixelWidth = width;
    Now().display.PixelHeight = height;
  }
  void Colours(int bits) override { Now().display.Bits = bits; }
  void Sound(bool present) override { Now().card.Present = present; }
  void SetClock(const DateTime& now) override {
    clock_ = now;
    Now().clock.Set(now);
  }
  void Setting(const Text& key, const Text& value) override {
    SaveSetting(Now().bundle, key, value);
  }
  Dateien& Files() override { return Now().machine.files; }

  void Start(User& user) override {
    if (started_) Renew();
    started_ = true;
    Now().loop.TheUser = &user;
    programm_ = std::make_unique<Programm>(Now().bundle, AllWindows);
    programm_->Laufen();
    programm_.reset();
    Now().loop.TheUser = nullptr;
  }
  EventLoop& Loop() override { return Now().loop; }
  Text HelpPage() override {
    if constexpr (requires(Platform & platform) { platform.help; }) {
      return Now().help.VisiblePage();
    } else {
      const auto& opened = Now().system.HelpOpened;
      return opened.empty() ? Text() : opened.back().second;
    }
  }
  Hands& TheHands() override { return Now().hands; }
  Text ExitButton() override { return L"frmHauptForm.imgÜberblenden"; }
  bool AsksToLeave(const Text& message) override { return message == programm_->Text(23000); }

  void InsertDisc(const Text& sheet) override {
    const Text image = sheet.substr(0, sheet.size() - 4) + L".bin";
    for (const Text& file : {sheet, image}) {
      Files().FileCopy(file, kTray + file.substr(file.rfind(L'\\')));
    }
  }
  void EjectDisc() override {
    for (const Text& name : Files().List(kTray, L"*.*")) Files().Kill(Text(kTray) + L"\\" + name);
  }
  WriterFaults& Writer() override { return Now().machine.writer.Faults; }
  void DriveFaults(const std::string& script) override {
    const char* folder = std::getenv(kEmulatedDrive);
    if (folder == nullptr) throw std::runtime_error("there is no emulated drive here");
    // The drive reads the file at every command, so the file is replaced as a whole.
    const std::filesystem::path file = std::filesystem::path(folder) / "script";
    const std::filesystem::path fresh = file.string() + ".new";
    std::ofstream(fresh) << script;
    std::filesystem::rename(fresh, file);
  }
  void Load(std::optional<int> percent) override {
    Now().load.Present = percent.has_value();
    Now().load.Percent = percent.value_or(0);
  }
  void LineIn(const Text& waveFile) override { Now().input.Play(waveFile); }
  void LineInOverrun(int ms) override { Now().input.Lose(ms); }
  HeadlessMixer& Mixer() override { return Now().mixer; }
  PrinterSetup& Printing() override { return Now().shop.printers.Setup; }
  OutputVolume& OwnVolume() override { return Now().volume; }

 private:
  static constexpr const wchar_t* kTray = L"C:\\Vantora\\Bandeja";

  Platform& Now() {
    if (!platform_) throw std::runtime_error("the script has not named a home yet");
    return *platform_;
  }
  // Begins a new process on the same machine: devices and screen keep their state.
  void Renew() {
    const std::unique_ptr<Platform> before = std::move(platform_);
    if (before) before->keptVolume.Save();
    platform_ = std::make_unique<Platform>(home_, resourceFolder_);
    if (clock_) platform_->clock.Set(*clock_);
    if (!before) return;
    platform_->display = before->display;
    platform_->card.Present = before->card.Present;
    platform_->mixer = before->mixer;
    platform_->shop.printers.Setup = before->shop.printers.Setup;
    platform_->load.Present = before->load.Present;
    platform_->load.Percent = before->load.Percent;
    platform_->machine.writer.Faults = before->machine.writer.Faults;
  }

  std::filesystem::path resourceFolder_, home_;
  std::optional<DateTime> clock_;
  std::unique_ptr<Platform> platform_;
  std::unique_ptr<Programm> programm_;
  bool started_ = false;
};

}  // namespace vantora
