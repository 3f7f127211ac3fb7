"""Captions, keys, colours and visibility of the function buttons."""

from form import BUTTON_FACE, BUTTONS, FUNCTION_BUTTONS, Form
from scenarios import scenario

# property prefix, button, default caption, default key
FUNCTIONS = (
    ("Add", "btnAdd", "aggiungi", 116),
    ("Insert", "btnInsert", "inserisci", 117),
    ("Copy", "btnCopy", "copia", 119),
    ("Delete", "btnDelete", "elimina", 118),
)
REFUSAL = "message The value must be between vbKeyF1 and vbKeyF12. [ok] Rolda"


@scenario
def buttons_show_caption_and_key(form: Form) -> None:
    want = ["aggiungi (F5)", "inserisci (F6)", "copia (F8)", "elimina (F7)", "conferma riga"]
    form.equal(form.of_parts(BUTTONS, "Caption"), want)


@scenario
def a_caption_is_composed_with_its_key(form: Form) -> None:
    for name, button, _, key in FUNCTIONS:
        for caption in ("nuovo", "", "Città & co", "a (F1)"):
            form.list.put(f"{name}Caption", caption)
            form.equal(form.list.get(f"{name}Caption"), caption)
            form.equal(form.list.part(button)["Caption"], f"{caption} (F{key - 111})")
            form.tells(f"changed {name}Caption")


@scenario
def the_confirm_caption_stands_as_it_is(form: Form) -> None:
    form.list.OKCaption = "salva"
    form.equal((form.list.OKCaption, form.list.part("btnOK")["Caption"]), ("salva", "salva"))
    form.equal(form.of_parts(FUNCTION_BUTTONS, "Caption")[0], "aggiungi (F5)")


@scenario
def a_key_renews_its_own_caption_alone(form: Form) -> None:
    form.list.KeyCopy = 123
    want = ["aggiungi (F5)", "inserisci (F6)", "copia (F12)", "elimina (F7)", "conferma riga"]
    form.equal(form.of_parts(BUTTONS, "Caption"), want)


@scenario
def keys_from_F1_to_F12_are_taken(form: Form) -> None:
    for name, button, caption, _ in FUNCTIONS:
        for code in (112, 123):
            form.list.put(f"Key{name}", code)
            form.equal(form.list.get(f"Key{name}"), code)
            form.equal(form.list.part(button)["Caption"], f"{caption} (F{code - 111})")
            form.tells(f"changed Key{name}")


@scenario
def other_keys_are_refused_with_a_message(form: Form) -> None:
    for name, button, caption, key in FUNCTIONS:
        for code in (111, 124, 0, -1, 32767):
            form.list.put(f"Key{name}", code)
            form.tells(REFUSAL)
        form.equal(form.list.get(f"Key{name}"), key)
        form.equal(form.list.part(button)["Caption"], f"{caption} (F{key - 111})")


@scenario
def the_confirm_key_may_be_any_16_bits(form: Form) -> None:
    for code in (13, 0, -32768, 32767, 116):
        form.list.KeyOK = code
        form.equal(form.list.KeyOK, code)
        form.tells("changed KeyOK")
    form.equal(form.list.part("btnOK")["Caption"], "conferma riga")


@scenario
def two_commands_may_share_a_key(form: Form) -> None:
    form.list.KeyAdd = 118
    form.equal((form.list.KeyAdd, form.list.KeyDelete), (118, 118))
    form.tells("changed KeyAdd")


@scenario
def a_load_leaves_one_opening_parenthesis(form: Form) -> None:
    form.list.Refresh()
    want = ["aggiungi (F5)", "inserisci F6)", "copia F8)", "elimina F7)", "conferma riga"]
    form.equal(form.of_parts(BUTTONS, "Caption"), want)
    form.list.KeyInsert = 112
    form.list.DeleteCaption = "via"
    want = ["aggiungi (F5)", "inserisci (F1)", "copia F8)", "via (F7)", "conferma riga"]
    form.equal(form.of_parts(BUTTONS, "Caption"), want)


@scenario
def colours_are_those_of_the_buttons(form: Form) -> None:
    for number, (name, button) in enumerate([(f[0], f[1]) for f in FUNCTIONS] + [("Ok", "btnOK")], 1):
        form.equal(form.list.get(f"{name}Color"), BUTTON_FACE)
        form.list.put(f"{name}Color", number)
        form.equal((form.list.get(f"{name}Color"), form.list.part(button)["BackColor"]), (number, number))
    form.equal(form.of_parts(BUTTONS, "BackColor"), [1, 2, 3, 4, 5])
    told = [f"changed {name}Color" for name in ("Add", "Inser", "Copy", "Delete", "Ok")]
    form.tells(*told)


@scenario
def BackColor_is_that_of_the_surface(form: Form) -> None:
    form.list.BackColor = 0x00C0FFEE
    form.equal((form.list.BackColor, form.list.part("control")["BackColor"]), (0x00C0FFEE, 0x00C0FFEE))
    form.equal(form.of_parts(BUTTONS, "BackColor"), [BUTTON_FACE] * 5)


@scenario
def visibility_is_kept_and_shown(form: Form) -> None:
    for name, button in [(f[0], f[1]) for f in FUNCTIONS] + [("Ok", "btnOK")]:
        for visible in (False, True, False):
            form.list.put(f"{name}Visible", visible)
            form.equal((form.list.get(f"{name}Visible"), form.list.part(button)["Visible"]), (visible, visible))
    form.equal(form.of_parts(BUTTONS, "Visible"), [False] * 5)


@scenario
def the_flags_outlive_a_load_that_hides_the_buttons(form: Form) -> None:
    form.list.Refresh()
    form.equal(form.of_parts(BUTTONS, "Visible"), [True, False, False, False, False])
    flags = [form.list.get(f"{name}Visible") for name in ("Add", "Insert", "Copy", "Delete", "Ok")]
    form.equal((flags, form.list.InputModified), ([True] * 5, False))
