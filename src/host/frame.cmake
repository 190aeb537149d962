# The frame window, with the page in it.
ko_folder(frame SOURCES
  FrameMenus.cpp
  FrameSite.cpp
  FrameWindow.cpp
  HelpWindow.cpp
  Reports.cpp
  WindowMain.cpp
  LINKS KoTimebaseEditor ko_data ko_instruments ko_widgets
)
