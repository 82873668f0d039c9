// The desktop's loop and hands on a stage, with pictures in a folder of their own.
#pragma once

#include <gtest/gtest.h>

#include "backends/qt/qt_event_loop.h"
#include "backends/qt/qt_hands.h"
#include "tests/backends/full_form.h"

#include "platform/system_box.h"

#include <QImage>
#include <QTemporaryDir>
#include <QWidget>

#include <filesystem>
#include <string>
#include <vector>

namespace vantora {

class Stage : public testing::Test {
 protected:
  Stage() : pictures_(Folder(folder_)), loop(pictures_, {}, 20), hands(loop) {
    loop.TheUser = &person;
    loop.OnError = [this](const Laufzeitfehler& error) { errors.push_back(error.what()); };
  }

  // Shows the form and lets the person act until his story ends; what he meant to do last is done.
  void Play(Form& form) {
    loop.Show(form);
    loop.Run();
    EXPECT_TRUE(person.Done());
    EXPECT_NO_THROW(hands.Settle());
  }
  void WritePicture(const std::string& name, const std::string& svg) const;
  QImage Look(const Control& control);  // the control as it stands on the screen
  QImage Look(const Form& form);
  std::string Refusal(const std::function<void()>& act);  // what the hands say; blank: they can

 private:
  static std::filesystem::path Folder(const QTemporaryDir& folder) {
    return folder.path().toStdString();
  }
  QTemporaryDir folder_;
  std::filesystem::path pictures_;

 protected:
  QtEventLoop loop;
  QtHands hands;
  Person person;
  std::vector<std::string> errors;
};

}  // namespace vantora
