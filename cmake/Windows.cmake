find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)

quillmark_precompiled_headers(windows
  HEADERS ${standard_headers} <QApplication> <QCheckBox> <QComboBox> <QDialog> <QKeyEvent> <QLabel>
          <QLineEdit> <QMainWindow> <QMenu> <QMessageBox> <QPainter> <QPushButton> <QTextBrowser>
          <QTimer> <QTreeView>
  USES Qt6::Widgets)
