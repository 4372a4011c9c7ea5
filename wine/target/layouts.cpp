#include "wine/target/layouts.h"

#include <map>

#include "wine/target/text.h"

namespace pointalk::target {
namespace {

using Lines = std::vector<std::string>;

// The desktop's own windows and the task bar, each on a thread of its own as if they were programs.
Lines Desktop() {
  return {
      R"(create progman class=Progman title="Program Manager" rect=0,0,1024,768 bottom=1 thread=desktop)",
      R"(create view class=SHELLDLL_DefView parent=progman rect=0,0,1024,736)",
      R"(create icons class=SysListView32 title=FolderView parent=view rect=0,0,1024,736)",
      R"(items icons "My Computer" "My Documents" "Recycle Bin" "Letters & Notes" "Gr\u00fc\u00dfe")",
      R"(create taskbar class=Shell_TrayWnd rect=0,736,1024,768 topmost=1 thread=taskbar)",
      R"(create rebar class=ReBarWindow32 parent=taskbar rect=100,738,860,766)",
      R"(create tasks class=ToolbarWindow32 title="Running Applications" parent=rebar rect=104,740,500,764)",
      R"(items tasks "Letter" "Notes")",
      R"(create tray class=TrayNotifyWnd parent=taskbar rect=864,736,1024,768)",
      R"(create clock class=TrayClockWClass title="10:45 PM" parent=tray rect=934,738,1020,766)",
  };
}

Lines Controls() {
  return {
      R"(create controls class=TargetControls title=Controls rect=110,10,560,430 frame=1 thread=controls)",
      R"(create ok class=Button title="&OK" parent=controls rect=120,50,200,75)",
      R"(create remember class=Button kind=check title="&Remember me" parent=controls rect=210,50,320,75)",
      R"(create blankbutton class=Button title="" parent=controls rect=330,50,400,75)",
      R"(create ansibutton class=Button title="Caf\u00e9" ansi=1 parent=controls rect=410,50,480,75)",
      R"(create label class=Static title="Your &name:" parent=controls rect=120,85,200,105)",
      R"(create field class=Edit title="hello" parent=controls rect=210,85,400,105)",
      R"(create ansifield class=Edit title="caf\u00e9" ansi=1 parent=controls rect=410,85,480,105)",
      R"(create combo class=ComboBox parent=controls rect=120,115,240,215)",
      R"(items combo "First choice" "Second choice" "Third choice")",
      R"(create simplecombo class=ComboBox kind=simple parent=controls rect=250,115,390,205)",
      R"(items simplecombo "Spring" "Summer" "Autumn" "Winter")",
      R"(create tabs class=SysTabControl32 parent=controls rect=400,115,550,205)",
      R"(items tabs "General" "Sound")",
      R"(create list class=ListBox parent=controls rect=120,215,240,305)",
      R"(items list "Apple" "Banana" "Cherry" "Date" "Elder" "Fig" "Grape" "Hazel" "Iris" "Juniper")",
      R"(create drawn class=ListBox kind=ownerdrawn parent=controls rect=250,215,390,305)",
      R"(data drawn 0x41 0x0042004300440045 0x46)",
      R"(create tree class=SysTreeView32 parent=controls rect=400,215,550,305)",
      R"(items tree "Documents" "\tLetters" "\tNotes" "Music")",
      R"(create details class=SysListView32 kind=report parent=controls rect=120,315,390,400)",
      R"(items details "Report.txt" "Budget.xls" "Photo.jpg")",
      R"(create vertical class=ScrollBar kind=vertical parent=controls rect=400,315,420,400)",
      R"(create horizontal class=ScrollBar parent=controls rect=430,315,550,335)",
      R"(create toolbar class=ToolbarWindow32 parent=controls rect=430,345,550,375)",
      R"(items toolbar "Cut" "Copy")",
  };
}

Lines Texts() {
  const std::string lines = R"("The quick brown fox\r\njumps over\r\n\r\nthe lazy dog\r\nand sleeps")";
  return {
      R"(create texts class=TargetTexts title=Texts rect=570,10,1010,330 frame=1 thread=texts)",
      R"(create multiline class=Edit kind=multiline parent=texts rect=580,50,780,140 title=)" + lines,
      R"(create textbox class=TargetTextBox base=Edit kind=multiline parent=texts rect=790,50,1000,140 title=)" +
          lines,
      R"(create editbox class=TargetEditBox base=Edit kind=multiline parent=texts rect=580,150,780,230 title=)" +
          lines,
      R"(create editcontrol class=TargetEditControl base=Edit parent=texts rect=790,150,1000,175 title="one two three")",
      R"(create emptybox class=EmptyTextBox base=Edit parent=texts rect=790,185,1000,210)",
      R"(create richansi class=RichEdit20A ansi=1 parent=texts rect=580,240,780,320 title=)" + lines,
      R"(create rich class=RichEdit20W parent=texts rect=790,240,1000,320 title=)" + lines,
  };
}

Lines Menus() {
  return {
      R"(create menus class=TargetMenus title=Menus rect=570,340,790,430 frame=1 thread=menus)",
      R"(menu menus "&File" "&Open" "&Save" - "E&xit")",
      R"(menu menus "&Edit" "Cu&t" "&Copy")",
      R"(create commandbar class=MsoCommandBar title="Menu Bar" parent=menus rect=580,390,780,420)",
      R"(element commandbar 0 name="Menu Bar" role=2 rect=580,390,780,420)",
      R"(element commandbar 1 name=Application role=2 rect=580,390,660,420)",
      R"(element commandbar 2 name=Open role=12 rect=660,390,720,420)",
      R"(element commandbar 3 name=Bold role=43 rect=720,390,780,420)",
  };
}

Lines Elements() {
  return {
      R"(create elements class=TargetElements title=Elements rect=800,340,1010,430 frame=1 thread=elements)",
      R"(element elements 0 name="The whole" role=10 rect=800,340,1010,430)",
      R"(element elements 1 name=Address value=hello description="Where to" role=42 rect=810,370,870,390)",
      R"(element elements 2 name=Documents value=2 role=36 rect=870,370,930,390)",
      R"(element elements 3 name=OK value="   " role=43 object=1 rect=930,370,1000,390)",
      R"(element elements 4 name="Page up" role=3 rect=810,390,870,420)",
      R"(element elements 5 name=Position value=40 role=3 rect=870,390,930,420)",
      R"(element elements 6 name="Own kind" role="flower pot" roletype=bstr rect=930,390,1000,420)",
  };
}

std::string RoleLine(int role) {
  const int left = 120 + role % 10 * 43;
  const int top = 450 + role / 10 * 38;
  const std::string number = std::to_string(role);
  return "element roles " + std::to_string(role + 1) + " name=\"role " + number + "\" role=" + number +
         " rect=" + std::to_string(left) + "," + std::to_string(top) + "," + std::to_string(left + 40) + "," +
         std::to_string(top + 34);
}

// Every role that the platform has a text for, and the one that it has none for.
Lines Roles() {
  Lines lines{R"(create roles class=TargetRoles title=Roles rect=110,440,560,730 thread=roles)",
              R"(element roles 0 name=Roles role=10 rect=110,440,560,730)"};
  for (int role = 0; role <= 64; ++role) {
    lines.push_back(RoleLine(role));
  }
  return lines;
}

}  // namespace

std::vector<std::string> LayoutLines(const std::string& name) {
  static const std::map<std::string, Lines (*)()> kLayouts = {
      {"desktop", &Desktop}, {"controls", &Controls}, {"texts", &Texts},
      {"menus", &Menus},     {"elements", &Elements}, {"roles", &Roles},
  };
  Lines lines;
  for (const auto& [known, make] : kLayouts) {
    if (name != "all" && name != known) continue;
    const Lines part = make();
    lines.insert(lines.end(), part.begin(), part.end());
  }
  if (lines.empty()) throw CommandError("unknown layout " + name);
  return lines;
}

}  // namespace pointalk::target
