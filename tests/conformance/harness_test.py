"""That the comparison finds a difference: a program whose second backend says something else."""

import os
import pathlib
import stat
import sys
import tempfile
import types
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.dont_write_bytecode = True
sys.path[:0] = [str(HERE), str(HERE.parents[1] / "clients" / "python")]

import krvlist  # noqa: E402
import scenarios  # noqa: E402

# Passes everything on to the real server; as the backend "qt" it spoils one text of what comes back.
PROXY = """#!{python}
import subprocess, sys, threading
args = ["headless" if arg == "qt" else arg for arg in sys.argv[1:]]
server = subprocess.Popen(["{program}", *args], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
def there():
    for line in sys.stdin.buffer:
        server.stdin.write(line)
        server.stdin.flush()
    server.stdin.close()
threading.Thread(target=there, daemon=True).start()
for line in server.stdout:
    if "qt" in sys.argv:
        line = line.replace({old!r}.encode(), {new!r}.encode())
    sys.stdout.buffer.write(line)
    sys.stdout.buffer.flush()
"""


@scenarios.scenario
def looks_at_nothing(form):
    pass


@scenarios.scenario
def expects_a_caption(form):
    form.equal(form.list.OKCaption, "conferma riga")


class Comparison(unittest.TestCase):
    def play(self, function, old="never said", new=""):
        """The outcome of a scenario on two backends, the second of which says `new` for `old`."""
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        program = pathlib.Path(folder.name, "server")
        real = krvlist.find_program()
        program.write_text(PROXY.format(python=sys.executable, program=real, old=old, new=new), "utf-8")
        program.chmod(program.stat().st_mode | stat.S_IXUSR)
        stage = scenarios.Stage(os.fspath(program), ["headless", "qt"], pathlib.Path(folder.name))
        self.addCleanup(stage.close)
        result = unittest.TestResult()
        scenarios.ScenarioTest(function, stage).run(result)
        return result

    def test_equal_backends_pass(self):
        for function in (looks_at_nothing, expects_a_caption):
            self.assertTrue(self.play(function).wasSuccessful())

    def test_a_difference_in_what_is_seen_at_the_end_fails_with_both_texts(self):
        result = self.play(looks_at_nothing, "conferma riga", "conferma")
        self.assertEqual((len(result.failures), len(result.errors)), (1, 0))
        text = result.failures[0][1]
        self.assertIn('\n-    Caption: "conferma riga"\n+    Caption: "conferma"\n', text)

    def test_an_expectation_that_one_backend_misses_fails_for_that_backend(self):
        result = self.play(expects_a_caption, "conferma riga", "conferma")
        self.assertEqual(len(result.failures), 1)
        self.assertIn("expects_a_caption (backend='qt')", str(result.failures[0][0]))

    def test_a_backend_that_ends_is_an_error(self):
        result = self.play(looks_at_nothing, '{"', "no message")
        self.assertEqual((len(result.errors), result.wasSuccessful()), (1, False))

    def test_scenarios_of_a_module_keep_their_order(self):
        module = types.ModuleType("some")
        module.second, module.other, module.first = expects_a_caption, len, looks_at_nothing
        self.assertEqual(scenarios.scenarios_of(module), [expects_a_caption, looks_at_nothing])


if __name__ == "__main__":
    unittest.main()
