// The commands that prepare the machine, its files and its devices.

#include "backends/discimage/writer_faults.h"
#include "backends/headless/headless_mixer.h"
#include "backends/linux/utf8.h"
#include "robot/made_files.h"
#include "robot/robot_commands.h"

#include <filesystem>

namespace vantora {

namespace {

// Makes the folder of a product path, with its parents.
void MakeFolderOf(Dateien& files, const Text& path) {
  const Text folder = path.substr(0, path.rfind(L'\\'));
  if (folder.size() > 2) files.MkDir(folder);
}

void Home(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.Stage().Home((std::filesystem::path(scene.Folder()) / ToUtf8(line.Value)).string());
}

void Screen(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.Stage().Screen(line.Numbers[0], line.Numbers[1]);
}

void Colours(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.Stage().Colours(line.Numbers[0]);
}

void Sound(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.Stage().Sound(line.Numbers[0] != 0);
}

void ClockAt(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  const std::vector<int>& n = line.Numbers;
  scene.Stage().SetClock({n[0], n[1], n[2], n[3], n[4], n[5]});
}

void Setting(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.Stage().Setting(line.Words[0].Content, line.Value);
}

// ---- files ----

void Copy(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  const Text& from = line.Words[0].Content;
  if (!ParsePath(line.Value).Drive.empty()) MakeFolderOf(scene.Stage().Files(), line.Value);
  const std::filesystem::path to = scene.HostPath(line.Value);
  std::filesystem::create_directories(to.parent_path());
  std::filesystem::copy_file(scene.HostPath(from), to,
                             std::filesystem::copy_options::overwrite_existing);
}

void MakeWave(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  const std::vector<int>& n = line.Numbers;
  MakeFolderOf(scene.Stage().Files(), line.Value);
  WriteSineWave(scene.HostPath(line.Value), {n[0], n[1], n[2], n[3], n[4]});
}

void MakePicture(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  MakeFolderOf(scene.Stage().Files(), line.Value);
  WriteBmp(scene.HostPath(line.Value), line.Numbers[0], line.Numbers[1]);
}

void MakeMp3(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  SineWave wave;
  wave.Ms = line.Numbers[0];
  wave.Hertz = line.Numbers[1];
  MakeFolderOf(scene.Stage().Files(), line.Value);
  WriteSineMp3(scene.HostPath(line.Value), wave);
}

void WriteFile(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  const Text& path = line.Words[0].Content;
  MakeFolderOf(scene.Stage().Files(), path);
  const std::string bytes = ToUtf8(line.Value);
  scene.Stage().Files().Open(path, Zugriff::Neu)->Write(bytes.data(), bytes.size());
}

void Delete(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.Stage().Files().Kill(line.Value);
}

// ---- devices ----

void Disc(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  if (line.Value == L"eject") {
    scene.Stage().EjectDisc();
  } else {
    scene.Stage().InsertDisc(scene.ProductPath(line.Words[1].Content));
  }
}

// A new fault replaces the previous one; `not-ready` and the pace stay unchanged.
void Writer(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  WriterFaults& faults = scene.Stage().Writer();
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
  faults.WrongAtPercent = line.Value == L"unnoticed" ? line.Numbers[0] : none.WrongAtPercent;
  faults.WriteTao = line.Value == L"WriteTAO" ? -1 : none.WriteTao;
  faults.WriteDao = line.Value == L"WriteDAO" ? -1 : none.WriteDao;
}

// Without a number, the load of the system is unknown.
void Load(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.Stage().Load(line.Numbers.empty() ? std::nullopt : std::optional<int>(line.Numbers[0]));
}

void DriveFaults(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  scene.Stage().DriveFaults(ToUtf8(line.Value));
}

void LineIn(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  if (line.Numbers.empty()) {
    scene.Stage().LineIn(scene.ProductPath(line.Value));
  } else {
    scene.Stage().LineInOverrun(line.Numbers[0]);
  }
}

// The lines of the sound card must be set before the start, because the program reads the lines
// when it starts.
void Mixer(RobotScene& scene, const ScriptLine& line, Form* /*front*/) {
  HeadlessMixer& mixer = scene.Stage().Mixer();
  if (line.Value != L"set" && scene.Running()) {
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
    scene.Stage().OwnVolume().SetVolume(volume);
  } else {
    throw Unreachable("the card was to have a line " + ToUtf8(name) + ", it has none");
  }
}

}  // namespace

CommandTable MachineCommands() {
  return {
      {L"home", Home},         {L"screen", Screen},       {L"colours", Colours},
      {L"sound", Sound},       {L"clock", ClockAt},       {L"setting", Setting},
      {L"copy", Copy},         {L"makewave", MakeWave},   {L"makepicture", MakePicture},
      {L"makemp3", MakeMp3},   {L"writefile", WriteFile}, {L"delete", Delete},
      {L"disc", Disc},         {L"writer", Writer},       {L"load", Load},
      {L"drive", DriveFaults}, {L"linein", LineIn},       {L"mixer", Mixer},
  };
}

}  // namespace vantora
