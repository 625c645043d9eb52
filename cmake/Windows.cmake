find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)

quillmark_precompiled_headers(windows
  HEADERS ${standard_headers} <QApplication> <QCheckBox> <QComboBox> <QDialog> <QKeyEvent> <QLabel>
          <QLineEdit> <QMainWindow> <QMenu> <QMessageBox> <QPainter> <QPushButton> <QTextBrowser>
          <QTimer> <QTreeView>
  USES Qt6::Widgets)

# quillmark_windows(NAME SOURCES file... USES target...): one folder of src/windows, with the .ui
# file beside each window's source.
function(quillmark_windows NAME)
  cmake_parse_arguments(WINDOWS "" "" "SOURCES;USES" ${ARGN})
  quillmark_room_with(windows windows_${NAME}
    SOURCES ${WINDOWS_SOURCES}
    USES quillmark_ui quillmark_check quillmark_run quillmark_settings quillmark_store Qt6::Widgets ${WINDOWS_USES})
  set_target_properties(quillmark_windows_${NAME} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
endfunction()
