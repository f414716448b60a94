#pragma once
// The files' part of the Session: the file table and what was loaded of it, the open project and
// its form, navigation, the cut reports, the texts of the open files, and the main window's model.
#include <any>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "analysis/record_texts.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/navigation.h"
#include "files/member_choice.h"
#include "files/project_file.h"
#include "platform/private_part.h"
#include "platform/session.h"

namespace hlyd {

struct CutReports;

struct FilesState {
    FileTableModule fileTable;
    std::unique_ptr<cProjectFiles> projects = std::make_unique<cProjectFiles>();
    std::any projectFileForm;     // the open project's, kept (see member_choice.h)
    MemberChooser chooseMembers;  // put in by the shell with the Session
    bool resourcesOpen = false;   // every open entry is a resource file: the next selection starts afresh
    NavigationState navigation;
    PrivatePart<CutReports> cutReports;
    std::map<std::string, std::shared_ptr<const RecordTexts>> openFileTexts;
    MainWindowModel mainWindow;
};

inline FilesState& filesState() { return *detail::current.files; }

}  // namespace hlyd
