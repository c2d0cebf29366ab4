// What help says, in the language of the person who asks.
#include <fmt/format.h>

#include <algorithm>

#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "simhost/ui/text_frame.h"
#include "simhost/user/language.h"

namespace simhost {
namespace {

struct ChineseWord {
    const char *word, *help;
};
// clang-format off
constexpr ChineseWord kChineseWords[] = {
    {"open",               "在窗口中打开工作目录里的模型"},
    {"window",             "切换到显示该模型的窗口"},
    {"close",              "关闭当前窗口"},
    {"directory",          "把该文件夹设为工作目录"},
    {"activate",           "在装配窗口中激活该元件；. 为回到顶层"},
    {"regenerate",         "再生当前模型及其下的全部模型"},
    {"select",             "沿模型树选择元件：UNIT/GEAR:2；选择项目：GEAR#12、GEAR/edge#7；顶层模型：."},
    {"also",               "加选这些项目，并保留已经选择的项目"},
    {"deselect",           "取消选择这些项目，保留其余已选项目"},
    {"rectangle",          "框选：选择完全位于框内的全部零件，以两个角点表示，坐标见图片的标尺"},
    {"rectangle more",     "同上，并保留已经选择的项目"},
    {"clear selection",    "清除选择"},
    {"selection empty",    "测试用：没有选择任何项目，但选择集仍可读取"},
    {"turn",               "旋转窗口中的模型：从 x 向右、y 向上的位置起，依次绕屏幕的右、上、前轴各转若干度；充满窗口，或每毫米 S 个屏幕点、模型原点位于 X Y"},
    {"right-click",        "打开右键菜单，不写名称则为 \"Sel Obj Menu\""},
    {"choose",             "按下右键菜单中的按钮"},
    {"press",              "按菜单名和按钮名按下按钮"},
    {"mapped key",         "像映射键那样运行命令，不管命令此时是否可用"},
    {"ok",                 "在提示框中按确定；手动操作时也可按下对话框的缺省按钮"},
    {"enter",              "按回车键：对话框的缺省按钮，或提示框的确定"},
    {"answer",             "在提示处输入；不写内容则取缺省值"},
    {"pick",               "主程序等待选取时：选取项目，写法同 select"},
    {"pick box",           "框选：选取完全位于框内的全部项目，以两个角点表示，坐标见图片的标尺"},
    {"pick edge",          "主程序等待选取时：选取视图中的边，编号见 show edges；2/start#17、end、axis、csys、silhouette、datum、point 同理"},
    {"pick at",            "选取离图纸上某点最近的项目"},
    {"pick nothing",       "不选任何项目，结束选取"},
    {"click",              "主程序等待点击时：图纸上的位置；按键 left、middle 或 right"},
    {"quit",               "离开输入提示、选取、点击或右键菜单；手动操作时也用来退出（有未保存的改动时须再输入一次）"},
    {"expect box",         "提示框的内容（加引号时须完全一致）"},
    {"expect caption",     "提示框的标题；none 表示系统自己的标题"},
    {"expect no box",      "没有打开的提示框"},
    {"expect message",     "消息栏的内容"},
    {"expect dialog",      "该对话框已打开；none 表示没有"},
    {"expect colour",      "模型或其曲面自身的颜色，每个分量 0 到 255；或 none"},
    {"expect transparency", "模型或其曲面自身的透明度，0 到 1；或 none"},
    {"expect greyed",      "该命令现在不能按下"},
    {"expect available",   "该命令现在可以按下"},
    {"expect button",      "右键菜单中有这个按钮，并且可以按下"},
    {"expect no button",   "右键菜单中没有这个按钮"},
    {"expect clipboard",   "剪贴板上的文字；或 none"},
    {"expect parameter",   "模型参数的值；或 none"},
    {"expect relations",   "模型的关系，各行之间为空格、/、空格；或 none"},
    {"expect unit",        "模型的主单位制"},
    {"expect views",       "当前窗口的工程图有多少个视图"},
    {"expect scale",       "该页上第一个视图所示模型的比例，0.5 即 1:2"},
    {"expect format",      "该页的图框文件，例如 a3.frm；或 none"},
    {"expect dimension",   "工程图中一个尺寸的文字，含公差；没有或未显示时为 none"},
    {"expect dimensions",  "当前窗口的工程图有多少个尺寸"},
    {"expect option",      "主程序配置选项的值，多个值以 | 分隔；或 none"},
    {"expect material",    "零件的当前材料；或 none"},
    {"expect mass",        "质量（kg），按所写的小数位数比较；组件为其下有材料的零件之和；或 none"},
    {"expect bend table",  "钣金件的折弯表；或 none"},
    {"expect developed length", "钣金件的展开长度，按所写的小数位数比较"},
    {"expect constraints", "元件的约束，以 ; 分隔；全部移除后为 empty；从未有过为 none"},
    {"expect place",       "元件在所属组件中的位置"},
    {"expect file",        "该文件（含版本号）存在"},
    {"expect no file",     "该文件不存在"},
    {"expect rows",        "对话框中表格的行数"},
    {"expect columns",     "表格各列的标题，以 | 分隔"},
    {"expect row",         "一行的文字，以 | 分隔"},
    {"expect row colours", "一行各单元格的颜色；- 为通常的颜色"},
    {"expect cell",        "单元格的内容：其中有输入框时为输入框的文字"},
    {"expect focus",       "用户所在的单元格；或 none"},
    {"parameter",          "给模型一个参数：4、12.5、YES 或 \"文字\""},
    {"expect extents",     "模型沿自身坐标轴的外接盒：最低角点和最高角点；或 none"},
    {"option",             "设置主程序的配置选项，例如 pro_format_dir；多个值以 | 分隔；none 为取消设置"},
    {"hold",               "像另一个程序那样占用文件"},
    {"let go",             "另一个程序关闭该文件"},
    {"hold clipboard",     "像另一个程序那样占用剪贴板"},
    {"let go clipboard",   "另一个程序放开剪贴板"},
    {"read-only",          "把文件或文件夹设为只读"},
    {"clock",              "从此插件询问时间时得到的秒数（自 1970 年起）"},
    {"wait",               "让时间过去若干秒"},
    {"setting",            "写入 VxConfig.ini 的一项设置"},
    {"save",               "保存当前模型，或写出名称的模型"},
    {"save all",           "保存所有改动过的模型"},
    {"picture",            "把窗口的内容画到文件中"},
    {"picture screen",     "按屏幕上当前的视角画出，带标尺，供 pick box 使用"},
    {"show",               "查看：models、tree [路径]、menu、commands、dialog、popup、selection、components（磁盘上的最新版本与约束）、constraints、"
                           "colours、parameters、relations、units [模型]、outline [模型]、sheets、views、edges 视图、dimensions、tables、options、materials、masses、bends、files [文件夹]、references [文件]、messages"},
    {"title",              "开始报告的一节"},
    {"remember",           "记下所有或所列模型的颜色、关系、单位制、大小、首个不在原点的元件的位置、材料、密度、质量、折弯表、展开长度或参数，供列表用"},
    {"table",              "把记下的内容并排列出"},
    {"erase",              "从内存中拭除模型；未保存的改动会丢失"},
    {"erase dimension",    "删除工程图中的一个尺寸或注释"},
    {"sheet",              "翻到工程图的某一页，从 1 开始"},
    {"add note",           "在当前页写一条注释"},
    {"add view",           "在当前页按页面比例放置工程图模型的视图；写 X Y beside 视图 则放置其投影"},
    {"hand out",           "把 C 盘的文件复制到结果文件夹"},
    {"make folder",        "新建文件夹：完整路径，或在工作目录中"},
    {"import",             "把别的系统的 STEP 文件变成一个项目，放在空文件夹中"},
    {"remember files",     "记下工作目录中的全部文件，逐字节"},
    {"expect same files",  "工作目录中的文件与记下的完全相同"},
    {"script",             "演示中：让另一个程序（与脚本放在一起的 Python 程序）处理 C 盘上的文件"},
    {"start",              "载入插件；可写主程序版本，如 5.0、Creo 2.0"},
    {"stop",               "卸载插件"},
    {"note",               "在记录中写一行"},
    {"help",               "如何使用"},
    {"help words",         "本列表"},
};
// clang-format on

}  // namespace

const std::vector<HelpLine>& HelpLines() {
    // clang-format off
    static const std::vector<HelpLine> lines = {
        {"open gearbox.asm",                 "open a model of the working folder",                "打开工作目录中的模型", true},
        {"BatchColor",                       "press a command by its name (show menu lists them)", "按名称执行命令（show menu 列出全部命令）", true},
        {"批量上色",                         "or by the label that the menu shows",               "或按菜单上显示的文字", true},
        {"show tree",                        "the components, with the paths that select takes",  "列出元件及 select 所用的路径", true},
        {"select motor_drive/motor, 箱体组件/housing", "select components down the tree",         "沿模型树选择元件", true},
        {"right-click",                      "the popup menu of what is selected; choose LABEL presses in it", "打开所选元件的右键菜单；choose 文字 按下其中的按钮", true},
        {"VxRelations",                      "a command with a dialog",                           "带对话框的命令", true},
        {"关闭",                             "in a dialog: a button or a choice, by name or label", "对话框中：按名称或文字按下按钮、选择选项", true},
        {"~ Activate `DIALOG` `BUTTON`",     "the same in full; ~ Close `DIALOG` closes the window", "完整写法；~ Close `DIALOG` 关闭窗口", false},
        {"ok",                               "OK in an open box; the default button of a dialog", "提示框中按确定；对话框中按缺省按钮", false},
        {"answer TEXT, or quit",             "at a prompt",                                       "回答输入提示，或离开", false},
        {"pick PATH, or quit",               "when the host asks for a pick: components, GEAR#12 a surface", "主程序等待选取时：元件，或 GEAR#12 这样的曲面", false},
        {"show colours",                     "look at the session; show lists what can be seen",  "查看当前状态；show 列出可看的内容", true},
        {"picture FILE",                     "draw what the window shows",                        "把窗口内容画到文件", false},
        {"save housing.prt",                 "write a model; save all writes what was changed",   "保存模型；save all 保存所有改动", true},
        {"help words",                       "every word; in scripts each begins with @",         "全部词语；脚本中每行以 @ 开头", true},
    };
    // clang-format on
    return lines;
}

const char* ChineseHelp(std::string_view word) {
    for (const ChineseWord& row : kChineseWords) {
        if (word == row.word) return row.help;
    }
    return "";
}

void Note(Trail& trail, const std::string& rest) {
    if (trail.patient()) trail.Say(ParseText(rest).text);
}

void Help(Trail& trail, const std::string&) {
    trail.Say(
        Either("You sit before a simulated CAD host with the plug-in in it. Type line by line:",
               "您面前是一台模拟的 CAD 主程序，插件已载入。每次输入一行："));
    for (const HelpLine& line : HelpLines()) {
        trail.Say("  " + Padded(line.typed, 46) + Either(line.english, line.chinese));
    }
    trail.Say(Either("The Tab key completes what you type. quit (or Ctrl-D) ends.",
                     "Tab 键补全输入；quit（或 Ctrl-D）退出。"));
}

void HelpWords(Trail& trail, const std::string&) {
    for (const Word& word : Words()) {
        trail.Say(fmt::format("@ {} {}", Padded(std::string(word.name) + " " + word.arguments, 32),
                              Either(word.help, ChineseHelp(word.name))));
    }
    std::string verbs =
        std::string("~ Command `NAME`   ") + Either("and on dialogs:", "以及对话框操作：");
    for (const std::string& verb : VerbNames()) verbs += " ~ " + verb;
    trail.Say(verbs);
}

}  // namespace simhost
