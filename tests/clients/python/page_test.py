"""The client's face of the property page, with the real server. `KRVLIST_SERVER` names its program."""

import unittest

import clients  # noqa: F401
import krvlist


class WithPage(unittest.TestCase):
    def setUp(self):
        self.server = krvlist.Server(region="it-IT", timeout=60)
        self.addCleanup(self.server.close)
        self.list = self.server.new("L1")
        self.list.Cols = 3
        self.list.Caption[1] = "Nome"
        self.page = self.server.open_page(self.list)

    def text(self, name):
        return self.page.part(name)["Text"]


class Developer(WithPage):
    def test_the_page_shows_the_first_control(self):
        self.assertEqual((self.text("txtCols"), self.page.state().changed), ("3", False))
        self.assertEqual(self.page.state().arrays["colCaptions"], ["", "Nome", ""])
        self.assertIs(self.page.state().data_open, False)

    def test_another_control_is_selected_by_itself_or_by_its_id(self):
        other = self.server.new("L2")
        self.server.on_message(lambda text, buttons, title: "yes")
        for select in (lambda: self.page.select(other), lambda: self.page.select("L1", "L2")):
            select()
        self.assertEqual(self.text("txtCols"), "3")
        self.page.select("L2")
        self.assertEqual(self.text("txtCols"), "1")

    def test_what_is_typed_and_clicked_is_applied(self):
        self.page.click("TabStrip1", 2)
        self.assertEqual((self.page.part("TabStrip1")["SelectedItem"], self.text("txtCaption")), (2, "Nome"))
        self.page.text("txtCaption", "Cognome")
        self.page.click("cmbAlignment", 2)
        self.page.click("chkEditable")
        self.page.fill("txtCols", "4")
        self.assertEqual(self.list.Caption[1], "Nome")
        self.page.apply()
        got = (self.list.Cols, self.list.Caption[1], self.list.ColAlignment[1], self.list.ColEditable[1])
        self.assertEqual(got, (4, "Cognome", 7, True))
        self.assertIs(self.page.state().changed, False)

    def test_the_focus_is_entered_and_left(self):
        self.page.enter("txtRows")
        self.assertIs(self.page.part("txtRows")["Focused"], True)
        self.page.leave("txtRows")
        self.assertIs(self.page.part("txtRows")["Focused"], False)

    def test_a_fresh_page_takes_the_place_of_the_old_one(self):
        self.page.text("txtCaption", "never applied")
        page = self.server.open_page("L1")
        self.assertEqual(page.part("txtCaption")["Text"], "")

    def test_faults_are_exceptions(self):
        with self.assertRaises(krvlist.ProtocolError) as refused:
            self.page.part("txtNothing")
        with self.assertRaises(krvlist.ControlError) as failed:
            self.page.text("txtColWidth", "32768")
        self.assertEqual((refused.exception.code, failed.exception.number), (-32602, 6))


class Host(WithPage):
    def test_changes_of_the_page_are_heard(self):
        got = []
        self.server.on_page_changed(lambda: got.append("changed"))
        self.page.text("txtRows", "5")
        self.server.on_page_changed(None)
        self.page.text("txtRows", "6")
        self.assertEqual(got, ["changed"])

    def test_files_are_asked_for(self):
        got = []
        self.server.on_open_file(lambda *asked: got.append(asked) or "c:\\shop.mdb")
        self.page.double_click("txtDataBaseName")
        self.assertEqual(got, [("Selezione DataBase", "*.mdb", "c:\\")])
        self.assertEqual(self.text("txtDataBaseName"), "c:\\shop.mdb")

    def test_a_file_dialog_is_cancelled_without_a_handler_and_at_none_and_at_an_error(self):
        def fail(*_):
            raise krvlist.HostError(1000, "no dialog")

        for handler in (None, lambda *_: None, fail):
            self.server.on_open_file(handler)
            self.page.double_click("txtDataBaseName")
            self.assertEqual(self.text("txtDataBaseName"), "")

    def test_an_empty_name_of_a_file_is_taken(self):
        self.page.text("txtDataBaseName", "old.mdb")
        self.server.on_open_file(lambda *_: "")
        self.page.double_click("txtDataBaseName")
        self.assertEqual(self.text("txtDataBaseName"), "")


if __name__ == "__main__":
    unittest.main()
