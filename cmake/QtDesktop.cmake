# What every layer that includes Qt shares; read only when the desktop program is built.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)

# Text crosses between UTF-8 and QString at one place (tools/desktop/QtText.h), and Qt's signal
# keywords stay out of the way of other libraries.
add_library(packwright_qt_options INTERFACE)
target_compile_definitions(
  packwright_qt_options
  INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
            QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_NO_KEYWORDS
            QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_link_libraries(packwright_qt_options INTERFACE packwright_options Qt6::Widgets)

set(packwright_qt_headers
    <QAction> <QApplication> <QComboBox> <QDialog> <QDialogButtonBox> <QFormLayout> <QGroupBox>
    <QKeyEvent> <QLabel> <QLineEdit> <QListWidget> <QMessageBox> <QMouseEvent> <QPainter>
    <QPushButton> <QSplitter> <QString> <QStyledItemDelegate> <QTimer> <QTreeWidget> <QVBoxLayout>)

# packwright_qt_library(NAME ...) is packwright_library for a folder with Qt classes.
function(packwright_qt_library name)
  set(CMAKE_AUTOMOC ON)
  packwright_library(${name} QT ${ARGN})
  target_link_libraries(packwright_${name} PUBLIC packwright_qt_options)
  packwright_precompile(packwright_${name} qt ${packwright_std_headers} ${packwright_qt_headers})
endfunction()
