// The order of start, without a window: names, payload, embedded files, settings file, password question,
// data file name. What a window must then do stands in the result.
#pragma once

#include <string>

#include "basic/Locale.h"
#include "engine/Application.h"
#include "engine/RecordForm.h"
#include "engine/Users.h"
#include "platform/Files.h"
#include "platform/Messages.h"

namespace plinth {

struct StartRequest {
  std::string exePath;       // of the running file (or the application that a tool works on)
  std::string commandLine;   // arguments as typed, without the program
  bool extractFiles = true;  // write embedded pictures beside the program where they are missing
};

struct ProgramNames {
  std::string exeStem;  // ExeStem: from the command line when that names an .exe, else the program's own name
  std::string appPath;  // AppPath: the program's folder with its trailing separator
  std::string exeBase;  // ExeBase: path and name of the running file without extension
  bool paste = false;   // "-paste" stands in the command line
};
ProgramNames programNames(const StartRequest& request, char separator);

struct DataFile {
  std::string folder;  // with trailing separator: the application's current folder
  std::string name;    // DataName: file name with extension
  bool named = false;  // from the command line
  std::string path() const { return folder + name; }
};
// The data file of a command line, else the application's own: ExeStem with `extension` in proper case, in
// the program's folder. Where file names know case, an existing file that differs only in case is taken.
DataFile dataFileOf(const StartRequest& request, const ProgramNames& names, const std::string& extension,
                    int codePage, const Files& files);
// The same for a path that a person or a tool chose.
DataFile dataFileAt(const std::string& path, char separator);

// BaseName, as index and export files carry it: the data file's name in proper case without extension.
std::string baseNameOf(const DataFile& data, int codePage);
// PicDir: the folder of the data pictures, with trailing separator.
std::string pictureFolderOf(const DataFile& data, int codePage, char separator);

struct StartUp {
  bool proceed = false;  // false: a message was shown and the program ends
  ProgramNames names;
  Application application;
  RecordForm form;  // titles and global fields as the .cfg file left them
  UserTable users;
  bool loginRequired = false;  // ask checkLogin() before anything of the data is opened
  DataFile data;
  std::string cfgPath;       // written when the application closes
  std::string blankPicture;  // path of "0.jpg" beside the program, "" when there is none
  std::string background;    // path of the background picture, "" when there is none
  std::string helpFile;      // path of the help file, "" when there is none
};

// Runs the steps. A payload that is missing or damaged shows message 21 with the reason and does not proceed;
// values out of range show message 17 once for each and loading goes on.
StartUp startUp(const StartRequest& request, Files& files, Messages& messages);

// Path of a fixed picture's file beside the program ("" for a data picture); the name cannot leave that
// folder.
std::string pictureFile(const StartUp& start, const PayloadPicture& picture);

}  // namespace plinth
