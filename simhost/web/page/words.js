// The page's own words in the browser's language. What the plug-in and the host say stays as it is.
const chinese = /^zh/i.test(navigator.language || 'zh');

const words = {
  open: ['打开', 'Open'],
  openModel: ['打开模型', 'Open a model'],
  save: ['保存', 'Save'],
  saveAll: ['全部保存', 'Save all'],
  close: ['关闭窗口', 'Close window'],
  newSession: ['重新开始', 'Begin anew'],
  reallyAnew: ['项目将恢复原样，未下载的文件会丢失。重新开始？',
    'The project becomes what it was, and files that you have not downloaded are lost. Begin anew?'],
  replay: ['重放', 'Replay'],
  reallyReplay: ['在项目的新副本上重放刚才的全部操作，并比较文件。开始？',
    'All that was done is done again on a new copy of the project, and the files are compared. Go?'],
  recording: ['录制', 'Recording'],
  transcript: ['记录', 'Transcript'],
  files: ['文件', 'Files'],
  faults: ['故障', 'Faults'],
  journal: ['调用', 'Calls'],
  download: ['下载', 'Download'],
  tree: ['模型树', 'Model tree'],
  nothingOpen: ['没有打开的模型', 'No model is open'],
  noCommand: ['没有匹配的命令', 'No command fits'],
  search: ['查找命令', 'Find a command'],
  filterTree: ['查找零件', 'Find a component'],
  welcome: ['打开一个模型开始工作：', 'Open a model to begin:'],
  writtenFiles: ['本次会话写出的文件', 'Files written in this session'],
  allFiles: ['显示驱动器上的全部文件', 'Show every file of the drive'],
  noFiles: ['尚未写出文件', 'Nothing has been written yet'],
  temporary: ['驱动器是临时副本，结束后删除', 'The drive is a copy that goes with the session'],
  kept: ['驱动器保留在', 'The drive stays in'],
  noFaults: ['没有故障', 'No faults'],
  complaints: ['主机的投诉', 'Complaints of the host'],
  held: ['未释放的数组', 'Arrays that are still held'],
  ended: ['会话已结束', 'The session has ended'],
  unreachable: ['与工作台的连接已断开，正在重试…', 'The workbench cannot be reached; trying again…'],
  stop: ['停止', 'Stop'],
  working: ['正在执行', 'Working'],
  calls: ['次调用', 'calls'],
  typeHere: ['在此输入命令、标签或脚本行，help 查看帮助', 'Type a command, a label or a line of a script; help helps'],
  pickWaits: ['请选取：', 'Pick: '],
  pickNone: ['结束选取', 'Pick nothing more'],
  quitPick: ['取消', 'Cancel'],
  clickWaits: ['请在图纸上单击放置位置', 'Click where on the sheet'],
  sheetOf: ['页', 'Sheet'],
  parameters: ['参数', 'Parameters'],
  relations: ['关系式', 'Relations'],
  size: ['外形', 'Size'],
  material: ['材料', 'Material'],
  changed: ['已改动', 'changed'],
  missing: ['不在内存', 'not in memory'],
  hidden: ['隐藏', 'hidden'],
  absent: ['未显示', 'not shown'],
  rightClick: ['右键菜单', 'Popup menu'],
  startCalls: ['开始记录调用', 'Record calls'],
  stopCalls: ['停止', 'Stop'],
  view3d: ['三维视图', '3-D view'],
  no3d: ['浏览器无法显示三维图形：', 'The browser cannot show 3-D pictures:'],
  rectangle: ['框选', 'Box'],
  rectangleHelp: ['按住左键拖出矩形，选中完全位于其中的零件（也可按住 Shift 拖动）',
    'Drag a rectangle: what lies wholly in it is selected (Shift and drag does the same)'],
  fit: ['适合', 'Fit'],
  isometricView: ['等轴测', 'Isometric'],
  frontView: ['前', 'Front'],
  topView: ['上', 'Top'],
  rightView: ['右', 'Right'],
  ok: ['确定', 'OK'],
  cancel: ['取消', 'Cancel'],
  yes: ['是', 'Yes'],
  no: ['否', 'No'],
  prompt: ['输入', 'Prompt'],
  question: ['确认', 'Question'],
  clearAll: ['清除当前模型的全部外观？', 'Clear all appearances of the current model?'],
  folder: ['文件夹', 'Folder'],
  folders: ['子文件夹', 'Folders'],
  folderName: ['名称', 'Name'],
  fileName: ['文件名', 'File name'],
  fileFilter: ['类型', 'Type'],
  emptyIsFolder: ['名称留空即选择上面的文件夹。', 'An empty name chooses the folder above.'],
  noBacktick: ['文字中不能有反引号 `：脚本无法记录它', 'A text cannot hold a backtick `: no script could say it'],
  language: ['EN', '中文'],
};

let isChinese = localStorage.getItem('language') ? localStorage.getItem('language') === 'zh' : chinese;

export function inChinese() {
  return isChinese;
}

export function say(word) {
  return words[word] ? words[word][isChinese ? 0 : 1] : String(word);
}

// Keeps the choice and shows the page anew.
export function switchLanguage() {
  localStorage.setItem('language', isChinese ? 'en' : 'zh');
  location.reload();
}
