// The commands that prepare the machine, its files and its devices.

#include "backends/discimage/writer_faults.h"
#include "backends/headless/headless_mixer.h"
#include "backends/linux/utf8.h"
#include "robot/made_files.h"
#include "robot/robot.h"

#include <filesystem>

namespace vantora {

namespace {

// Makes the folder of a product path, with its parents.
void MakeFolderOf(Dateien& files, const Text& path) {
  const Text folder = path.substr(0, path.rfind(L'\\'));
  if (folder.size() > 2) files.MkDir(folder);
}

}  // namespace

// Converts a product path, or a path relative to the script's folder, to a path of the machine.
std::string Robot::HostPath(const Text& name) const {
  if (!ParsePath(name).Drive.empty()) return stage_.Files().SystemPath(name).string();
  return (std::filesystem::path(folder_) / ToUtf8(name)).lexically_normal().string();
}

// Converts a name to a product path. Drive Z: holds all files of the machine.
Text Robot::ProductPath(const Text& name) const {
  if (!ParsePath(name).Drive.empty()) return name;
  Text path = FromUtf8(HostPath(name));
  for (wchar_t& c : path) c = c == L'/' ? L'\\' : c;
  return L"Z:" + path;
}

void Robot::Home(const ScriptLine& line, Form* /*front*/) {
  stage_.Home((std::filesystem::path(folder_) / ToUtf8(line.Value)).string());
}

void Robot::Screen(const ScriptLine& line, Form* /*front*/) {
  stage_.Screen(line.Numbers[0], line.Numbers[1]);
}

void Robot::Colours(const ScriptLine& line, Form* /*front*/) {
  stage_.Colours(line.Numbers[0]);
}

void Robot::Sound(const ScriptLine& line, Form* /*front*/) {
  stage_.Sound(line.Numbers[0] != 0);
}

void Robot::ClockAt(const ScriptLine& line, Form* /*front*/) {
  const std::vector<int>& n = line.Numbers;
  stage_.SetClock({n[0], n[1], n[2], n[3], n[4], n[5]});
}

void Robot::Setting(const ScriptLine& line, Form* /*front*/) {
  stage_.Setting(line.Words[0].Content, line.Value);
}

// ---- files ----

void Robot::Copy(const ScriptLine& line, Form* /*front*/) {
  const Text& from = line.Words[0].Content;
  if (!ParsePath(line.Value).Drive.empty()) MakeFolderOf(stage_.Files(), line.Value);
  const std::filesystem::path to = HostPath(line.Value);
  std::filesystem::create_directories(to.parent_path());
  std::filesystem::copy_file(HostPath(from), to, std::filesystem::copy_options::overwrite_existing);
}

void Robot::MakeWave(const ScriptLine& line, Form* /*front*/) {
  const std::vector<int>& n = line.Numbers;
  MakeFolderOf(stage_.Files(), line.Value);
  WriteSineWave(HostPath(line.Value), {n[0], n[1], n[2], n[3], n[4]});
}

void Robot::MakePicture(const ScriptLine& line, Form* /*front*/) {
  MakeFolderOf(stage_.Files(), line.Value);
  WriteBmp(HostPath(line.Value), line.Numbers[0], line.Numbers[1]);
}

void Robot::MakeMp3(const ScriptLine& line, Form* /*front*/) {
  SineWave wave;
  wave.Ms = line.Numbers[0];
  wave.Hertz = line.Numbers[1];
  MakeFolderOf(stage_.Files(), line.Value);
  WriteSineMp3(HostPath(line.Value), wave);
}

void Robot::WriteFile(const ScriptLine& line, Form* /*front*/) {
  const Text& path = line.Words[0].Content;
  MakeFolderOf(stage_.Files(), path);
  const std::string bytes = ToUtf8(line.Value);
  stage_.Files().Open(path, Zugriff::Neu)->Write(bytes.data(), bytes.size());
}

void Robot::Delete(const ScriptLine& line, Form* /*front*/) {
  stage_.Files().Kill(line.Value);
}

// ---- devices ----

void Robot::Disc(const ScriptLine& line, Form* /*front*/) {
  if (line.Value == L"eject") {
    stage_.EjectDisc();
  } else {
    stage_.InsertDisc(ProductPath(line.Words[1].Content));
  }
}

// A new fault replaces the previous one; `not-ready` and the pace stay unchanged.
void Robot::Writer(const ScriptLine& line, Form* /*front*/) {
  WriterFaults& faults = stage_.Writer();
  if (line.Value == L"not-ready") {
    faults.NotReady = line.Numbers[0];
    return;
  }
  if (line.Value == L"pace") {
    faults.Pace = line.Numbers[0];
    return;
  }
  const WriterFaults none;
  faults.RefuseTrack = line.Value == L"AddTrack" ? line.Numbers[0] : none.RefuseTrack;
  faults.FailAtPercent = line.Value == L"at" ? line.Numbers[0] : none.FailAtPercent;
  faults.WriteTao = line.Value == L"WriteTAO" ? -1 : none.WriteTao;
  faults.WriteDao = line.Value == L"WriteDAO" ? -1 : none.WriteDao;
}

// Without a number, the load of the system is unknown.
void Robot::Load(const ScriptLine& line, Form* /*front*/) {
  stage_.Load(line.Numbers.empty() ? std::nullopt : std::optional<int>(line.Numbers[0]));
}

void Robot::Bottle(const ScriptLine& line, Form* /*front*/) {
  stage_.Bottle(ToUtf8(line.Value));
}

void Robot::LineIn(const ScriptLine& line, Form* /*front*/) {
  if (line.Numbers.empty()) {
    stage_.LineIn(ProductPath(line.Value));
  } else {
    stage_.LineInOverrun(line.Numbers[0]);
  }
}

// The lines must be set before the start, because the program reads them when it starts.
void Robot::Mixer(const ScriptLine& line, Form* /*front*/) {
  HeadlessMixer& mixer = stage_.Mixer();
  if (line.Value != L"set" && running_) {
    throw Unreachable("the lines of the card are said before the start");
  }
  if (line.Value == L"none") {
    mixer.Present = false;
    return;
  }
  const Text& name = line.Words[1].Content;
  const int volume = line.Numbers[0];
  if (line.Value != L"set") {
    const bool in = line.Value == L"in";
    mixer.Put({name, in ? MixerCard::Role::Input : MixerCard::Role::Output, volume,
               line.Numbers[1] != 0, line.Numbers[2] != 0});
  } else if (HeadlessMixer::Line* found = mixer.Find(name)) {
    found->Volume = volume;
  } else if (name == L"Wave") {
    stage_.OwnVolume().SetVolume(volume);
  } else {
    throw Unreachable("the card was to have a line " + ToUtf8(name) + ", it has none");
  }
}

}  // namespace vantora
