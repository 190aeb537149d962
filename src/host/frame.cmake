# The frame window, with the page in it.
ko_folder(frame SOURCES
  DockLayout.cpp
  DriverLog.cpp
  DriverLogModel.cpp
  FailureStrip.cpp
  FaultDialog.cpp
  FileWatch.cpp
  FrameFiles.cpp
  FrameInstruments.cpp
  FrameMemory.cpp
  FrameMenus.cpp
  FramePrinting.cpp
  FrameSite.cpp
  FrameWindow.cpp
  GuardedApplication.cpp
  HelpWindow.cpp
  HintLine.cpp
  InstrumentsModel.cpp
  InstrumentsView.cpp
  RecentFiles.cpp
  Reports.cpp
  ToolkitTexts.cpp
  UserQuestions.cpp
  WindowMain.cpp
  LINKS KoTimebaseEditor ko_data ko_instruments ko_sheet ko_widgets
)
