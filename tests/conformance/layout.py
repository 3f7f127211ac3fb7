"""Where the parts of the control lie, in twips."""

from form import BUTTONS, FUNCTION_BUTTONS, Form, single
from scenarios import scenario

SIZES = ((5055, 1800), (5057, 2001), (6000, 3000), (9999, 3333), (10000, 4000), (10005, 2000), (12000, 5000))


def rectangles(form: Form, width: float, height: float) -> dict:
    """Where everything lies when the control has this size and nothing was changed."""
    button = 2000.0 if width > 10000 else single((width + width) / 10)
    top = height - 510 - 255 - 20
    want = {"Grid": [0, 0, width, top], "GridIn": [0, top, width, 510]}
    left = 0.0
    for name in FUNCTION_BUTTONS:
        want[name] = [left, top + 510, button, 255]
        left = single(left + button)
    want["btnOK"] = [left, top + 510, single(width - left), 255]
    want["InpFld"] = [35, top + 240, 995, 240]
    return want


@scenario
def parts_fill_the_control_at_any_size(form: Form) -> None:
    for width, height in SIZES:
        form.list.resize(width, height)
        want = rectangles(form, width, height)
        form.equal({name: form.rectangle(name) for name in want}, want)
    form.tells()


@scenario
def a_new_control_is_laid_out_at_6000_by_3000(form: Form) -> None:
    want = rectangles(form, 6000, 3000)
    form.equal({name: form.rectangle(name) for name in want}, want)


@scenario
def a_small_control_is_widened_and_raised_before_the_layout(form: Form) -> None:
    for width, height, wide, high in ((4000, 3000, 5055, 3000), (6000, 1000, 6000, 1800), (0, 0, 5055, 1800)):
        form.list.resize(width, height)
        control = form.list.part("control")
        form.equal((control["Width"], control["Height"]), (wide, high))
        want = rectangles(form, wide, high)
        form.equal({name: form.rectangle(name) for name in want}, want)


@scenario
def button_widths_stop_at_2000(form: Form) -> None:
    widths = {}
    for width in (4000, 9995, 10000, 10005, 12000):
        form.list.resize(width, 3000)
        widths[width] = form.of_parts(BUTTONS, "Width")
    form.equal(widths, {
        4000: [1011] * 5,
        9995: [1999] * 5,
        10000: [2000] * 5,
        10005: [2000] * 4 + [2005],
        12000: [2000] * 4 + [4000],
    })
    form.equal(form.list.ButtonsWidth, 2000)


@scenario
def copy_stands_before_delete(form: Form) -> None:
    lefts = form.of_parts(("btnAdd", "btnInsert", "btnCopy", "btnDelete", "btnOK"), "Left")
    form.equal(lefts, [0, 1200, 2400, 3600, 4800])


@scenario
def hidden_buttons_keep_their_place(form: Form) -> None:
    control = form.list
    control.InsertVisible = control.CopyVisible = control.OkVisible = False
    before = [form.rectangle(name) for name in BUTTONS]
    form.equal(before, [rectangles(form, 6000, 3000)[name] for name in BUTTONS])
    control.resize(7000, 3000)
    form.equal([form.rectangle(name) for name in BUTTONS], [rectangles(form, 7000, 3000)[n] for n in BUTTONS])
    form.equal(form.of_parts(BUTTONS, "Visible"), [True, False, False, True, False])


@scenario
def the_line_lies_10_above_the_bottom(form: Form) -> None:
    for height in (1800, 3000, 4321):
        form.list.resize(6000, height)
        line = form.list.part("Line1")
        form.equal((line["Y1"], line["Y2"]), (height - 10, height - 10))


@scenario
def the_highlight_line_moves_with_its_button(form: Form) -> None:
    control = form.list
    control.EvidenziaFunzione(4)
    control.resize(8000, 3000)
    line = control.part("Line1")
    form.equal((line["X1"], line["X2"]), (3200, 4800))
    control.EvidenziaFunzione(0)
    control.resize(9000, 3000)
    line = control.part("Line1")
    form.equal((line["X1"], line["X2"]), (-1, -1))


@scenario
def the_editor_follows_its_cell(form: Form) -> None:
    control = form.quiet(2)
    control.ColWidth[0] = 2500
    form.equal(form.rectangle("InpFld"), [35, 2455, 995, 240])
    control.resize(7000, 4000)
    form.equal(form.rectangle("InpFld"), [35, 3455, 2535, 240])
    control.ButtonsHeight = 455
    form.equal(form.rectangle("InpFld"), [35, 3255, 2535, 240])


@scenario
def ButtonsHeight_gives_all_buttons_the_height_and_lays_out(form: Form) -> None:
    control = form.list
    control.ButtonsHeight = 400.5
    form.tells("changed ButtonsHeight")
    form.equal(control.ButtonsHeight, 400.5)
    form.equal(form.of_parts(BUTTONS, "Height"), [400.5] * 5)
    form.equal(form.rectangle("Grid"), [0, 0, 6000, 2069.5])
    form.equal(form.rectangle("GridIn"), [0, 2069.5, 6000, 510])
    form.equal(form.of_parts(BUTTONS, "Top"), [2579.5] * 5)


@scenario
def visibility_and_captions_do_not_lay_out(form: Form) -> None:
    control = form.list
    control.SetFont(16)
    before = form.rectangle("Grid")
    control.AddVisible = False
    control.AddVisible = True
    control.AddCaption = "x"
    control.KeyAdd = 112
    form.equal(form.rectangle("Grid"), before)


@scenario
def a_new_column_count_does_not_lay_out(form: Form) -> None:
    control = form.quiet(1)
    control.SetFont(16)
    before = [form.rectangle("Grid"), form.rectangle("GridIn")]
    control.Cols = 3
    control.Rows = 20
    form.equal([form.rectangle("Grid"), form.rectangle("GridIn")], before)
