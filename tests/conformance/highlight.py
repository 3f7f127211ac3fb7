"""The highlight of the active function: a colour, or the line under the button."""

from form import BUTTON_FACE, FUNCTION_BUTTONS, Form
from scenarios import scenario

NUMBERS = {"btnAdd": 1, "btnInsert": 2, "btnDelete": 3, "btnCopy": 4}
OWN = {"btnAdd": 11, "btnInsert": 12, "btnCopy": 13, "btnDelete": 14, "btnOK": 15}


def painted(form: Form, colour: int) -> None:
    """Gives the buttons colours of their own and sets the highlight colour."""
    for button, value in OWN.items():
        name = "Ok" if button == "btnOK" else button[3:]
        form.list.put(f"{name}Color", value)
    form.list.EvidenziaColor = colour
    form.happened()


def colours(form: Form) -> dict:
    return dict(zip(OWN, form.of_parts(OWN, "BackColor")))


def line(form: Form) -> tuple:
    part = form.list.part("Line1")
    return part["X1"], part["X2"]


@scenario
def EvidenziaColor_alone_changes_no_button(form: Form) -> None:
    painted(form, 255)
    form.equal((form.list.EvidenziaColor, colours(form), line(form)), (255, OWN, (-1, -1)))


@scenario
def without_a_colour_the_line_marks_the_button(form: Form) -> None:
    for colour in (0, 0x80000000, BUTTON_FACE, 0xFFFFFFFF):
        painted(form, colour)
        for button, number in NUMBERS.items():
            form.list.EvidenziaFunzione(number)
            left, _, width, _ = form.rectangle(button)
            form.equal((line(form), colours(form)), ((left, left + width), OWN))


@scenario
def a_colour_marks_the_button_and_clears_the_others(form: Form) -> None:
    for colour in (1, 255, 0x7FFFFFFF):
        painted(form, colour)
        for chosen, number in NUMBERS.items():
            form.list.EvidenziaFunzione(number)
            want = {b: colour if b == chosen else BUTTON_FACE for b in FUNCTION_BUTTONS}
            form.equal((colours(form), line(form)), ({**want, "btnOK": 15}, (-1, -1)))


@scenario
def a_colour_takes_the_line_away(form: Form) -> None:
    painted(form, 0)
    form.list.EvidenziaFunzione(2)
    form.list.EvidenziaColor = 255
    form.equal(line(form), (1200, 2400))
    form.list.EvidenziaFunzione(1)
    form.equal(line(form), (-1, -1))


@scenario
def the_line_leaves_an_earlier_colour(form: Form) -> None:
    painted(form, 255)
    form.list.EvidenziaFunzione(1)
    form.list.EvidenziaColor = 0
    form.list.EvidenziaFunzione(2)
    form.equal((colours(form)["btnAdd"], line(form)), (255, (1200, 2400)))


@scenario
def numbers_beside_0_to_4_change_nothing(form: Form) -> None:
    for colour in (0, 255):
        painted(form, colour)
        form.list.EvidenziaFunzione(3)
        before = colours(form), line(form)
        for number in (5, -1, 6, 32767, -32768):
            form.list.EvidenziaFunzione(number)
            form.equal((colours(form), line(form)), before)


@scenario
def number_0_takes_the_highlight_away(form: Form) -> None:
    painted(form, 0)
    form.list.EvidenziaFunzione(4)
    form.list.EvidenziaFunzione(0)
    form.equal((colours(form), line(form)), (OWN, (-1, -1)))
    form.list.EvidenziaColor = 255
    form.list.EvidenziaFunzione(4)
    form.list.EvidenziaFunzione(0)
    form.equal(colours(form), {**dict.fromkeys(FUNCTION_BUTTONS, BUTTON_FACE), "btnOK": 15})


@scenario
def number_0_without_a_highlight_changes_nothing(form: Form) -> None:
    for colour in (0, 255):
        painted(form, colour)
        form.list.EvidenziaFunzione(0)
        form.equal((colours(form), line(form)), (OWN, (-1, -1)))
    form.tells()
