// The registry as other programs see it: Windows' own reg.exe writes and reads it here.
#include <QComboBox>
#include <QProcess>

#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/OpenedProgram.h"
#include "tests/support/desktop/PageFixture.h"

namespace tests {

namespace {

QString Reg(const QStringList& arguments) {
  QProcess process;
  process.start("reg.exe", arguments);
  if (!process.waitForFinished() || process.exitCode() != 0) return "reg.exe failed";
  return QString::fromLocal8Bit(process.readAllStandardOutput());
}

QString RealKey(const char* key) {
  return QStringLiteral("HKCU\\%1\\%2").arg(tools::ToQString(RealUserKey()), key);
}

}  // namespace

class SystemRegistryTest_win : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void KeysOfOtherProgramsAreBrowsed() {
    PageFixture f;
    Reg({"add", RealKey("Software\\Werkzeug\\Öl"), "/v", "Pfad", "/d", "x", "/f"});
    f.Open("tabRegistryEditor", 1, 1);
    QWidget& path = Child(*f.page, "cmbRegPath");
    Type(path, "HKEY_CURRENT_USER\\Software");
    QTest::keyClick(&path, Qt::Key_Return);
    auto& list = Child<QAbstractItemView>(*f.page, "lstSubkeys");
    for (const char* name : {"Werkzeug", "Öl"}) {
      QVERIFY2(RowWith(list, name).isValid(), name);
      DoubleClick(list, RowWith(list, name));
    }
    QCOMPARE(Shown(*f.page, "cmbRegPath"), "HKEY_CURRENT_USER\\Software\\Werkzeug\\Öl");
  }

  void OtherProgramsReadTheLastAuthor() {
    const TemporaryFolder home;
    UseHome(home);
    OpenedProgram program;
    ModalScript script;
    script.Expect<QWidget>("frmNewProduct", [&home](QWidget& form) {
      Type(Child(form, "txtAuthor"), "Anna Lies");
      Type(Child(form, "txtFilename"), tools::ToQString(home.Path("demo.product")));
      Press(form, "cmdOK");
    });
    program.Press("new");
    const QString read =
        Reg({"query", RealKey("Software\\Quillon\\Packwright"), "/v", "LastAuthor"});
    for (const char* part : {"REG_SZ", "Anna Lies"}) QVERIFY2(read.contains(part), part);
  }
};

}  // namespace tests

QTEST_MAIN(tests::SystemRegistryTest_win)
#include "SystemRegistryTest_win.moc"
