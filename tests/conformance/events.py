"""Events: who hears them, what a host may do in them, message boxes."""

import krvlist
from form import Form
from scenarios import scenario

KEY_DOWN = "KeyDown(KeyCode=65, Shift=0, Col=-1)"
REFUSAL = "The value must be between vbKeyF1 and vbKeyF12."


@scenario
def only_listened_events_are_sent(form: Form) -> None:
    control = form.quiet(1)
    for events, told in (([], False), (["KeyDown"], True), (["KeyPress", "RowSelect"], False), ("*", True)):
        control.listen(events)
        control.SendKeys(65, 0)
        form.tells(*([KEY_DOWN] if told else []))


@scenario
def KeyPress_is_never_raised(form: Form) -> None:
    control = form.list
    control.listen(["KeyPress"])
    control.focus("btnAdd")
    control.type("abcÀ12")
    control.SendKeys(65, 0)
    form.tells()


@scenario
def events_go_to_the_control_that_listens(form: Form) -> None:
    other = form.new("L2")
    other.listen([])
    form.list.SendKeys(65, 0)
    other.SendKeys(65, 0)
    other.listen("*")
    other.SendKeys(65, 0)
    form.tells(KEY_DOWN, f"L2: {KEY_DOWN}")


@scenario
def an_error_of_the_host_comes_out_of_the_call(form: Form) -> None:
    control = form.list

    @control.on("KeyDown")
    def fail() -> None:
        raise krvlist.HostError(1234, "not now")

    for action in (lambda: control.SendKeys(65, 0), lambda: control.key(65, part="btnAdd")):
        error = form.fails(1234, action)
        form.equal((error.description, error.source), ("not now", "host"))
        form.tells(KEY_DOWN)
    control.off("KeyDown")
    control.listen("*")
    control.SendKeys(65, 0)
    form.tells(KEY_DOWN)


@scenario
def an_answer_that_does_not_convert_is_error_13(form: Form) -> None:
    control = form.quiet(1)
    answers = [{"KeyCode": "abc"}, {"Shift": None}, {"KeyCode": [1]}]
    control.on("KeyDown")(lambda: answers[0])
    while answers:
        form.fails(13, lambda: control.SendKeys(65, 0))
        answers.pop(0)


@scenario
def an_answer_out_of_range_fails(form: Form) -> None:
    control = form.quiet(1)
    control.on("KeyDown")(lambda: {"KeyCode": 40000})
    with_error = None
    try:
        control.SendKeys(65, 0)
    except krvlist.ControlError as error:
        with_error = error.number
    form.equal(with_error in (6, 13), True)


@scenario
def arguments_by_value_and_unknown_names_are_ignored(form: Form) -> None:
    control = form.quiet(1)
    control.on("KeyDown")(lambda: {"Col": "x", "Nobody": 1})
    control.SendKeys(65, 0)
    form.tells(KEY_DOWN)


@scenario
def requests_nest_inside_an_event(form: Form) -> None:
    control = form.quiet(2)
    codes = []

    @control.on("KeyDown")
    def again(KeyCode: int) -> None:
        codes.append(KeyCode)
        control.Cols = control.Cols + 1
        if KeyCode < 68:
            control.SendKeys(KeyCode + 1, 0)
        codes.append(-KeyCode)

    control.SendKeys(65, 0)
    form.equal((codes, control.Cols), ([65, 66, 67, 68, -68, -67, -66, -65], 6))
    told = [[f"KeyDown(KeyCode={code}, Shift=0, Col=-1)", "changed Cols"] for code in (65, 66, 67, 68)]
    form.tells(*sum(told, []))


@scenario
def an_error_passes_through_nested_requests(form: Form) -> None:
    control = form.quiet(1)
    inner = []

    @control.on("KeyDown")
    def again(KeyCode: int) -> None:
        if KeyCode == 66:
            raise krvlist.HostError(77, "inside")
        try:
            control.SendKeys(66, 0)
        except krvlist.ControlError as error:
            inner.append(error.number)

    control.SendKeys(65, 0)
    form.equal(inner, [77])


@scenario
def requests_nest_64_deep(form: Form) -> None:
    control = form.quiet(1)
    depth, refusals = [0], []

    @control.on("KeyDown")
    def again() -> None:
        depth[0] += 1
        try:
            control.SendKeys(65, 0)
        except krvlist.ControlError as error:
            refusals.append(error.number)

    control.SendKeys(65, 0)
    form.equal((refusals, depth[0] in (64, 65)), ([28], True))
    control.off("KeyDown")
    form.equal(control.Cols, 1)


@scenario
def the_control_may_be_deleted_inside_its_event(form: Form) -> None:
    for action in (
        lambda doomed: doomed.SendKeys(65, 0),
        lambda doomed: doomed.key(65, part="btnOK"),
        lambda doomed: doomed.key(65, part="btnAdd"),
    ):
        doomed = form.new("L2")
        doomed.on("KeyDown")(doomed.delete)
        action(doomed)
        form.refused(-32602, lambda: doomed.Cols)
        form.tells(f"L2: {KEY_DOWN}")
    form.equal(form.list.Cols, 1)


@scenario
def a_control_may_be_made_and_deleted_inside_an_event(form: Form) -> None:
    control = form.quiet(1)

    @control.on("KeyDown")
    def replace() -> None:
        other = form.new("L2")
        other.SendKeys(65, 0)
        other.delete()

    control.SendKeys(65, 0)
    form.tells(f"L2: {KEY_DOWN}")  # what came before was taken when the other one was made
    form.equal(control.Cols, 1)


@scenario
def the_control_may_be_deleted_under_its_message_box(form: Form) -> None:
    doomed = form.new("L2")

    @form.server.on_message
    def delete(text: str, buttons: str, title: str) -> None:
        doomed.delete()

    doomed.KeyAdd = 1
    form.refused(-32602, lambda: doomed.KeyAdd)
    form.tells(f"message {REFUSAL} [ok] Rolda")


@scenario
def requests_nest_inside_a_message_box(form: Form) -> None:
    control = form.list

    @form.server.on_message
    def read(text: str, buttons: str, title: str) -> None:
        control.AddCaption = str(control.KeyAdd)

    control.KeyAdd = 1
    form.equal((control.KeyAdd, control.AddCaption), (116, "116"))
    form.tells(f"message {REFUSAL} [ok] Rolda", "changed AddCaption")


@scenario
def message_boxes_show_the_application_title(form: Form) -> None:
    form.server.title = "Magazzino"
    form.list.KeyAdd = 1
    form.tells(f"message {REFUSAL} [ok] Magazzino")


@scenario
def standing_answers_keep_boxes_away(form: Form) -> None:
    for text in (REFUSAL, "*"):
        form.server.answer(text, "ok")
        form.list.KeyAdd = 1
        form.tells()
        form.server.answer(text, None)
        form.list.KeyAdd = 1
        form.tells(f"message {REFUSAL} [ok] Rolda")


@scenario
def a_deleted_control_leaves_the_others_alone(form: Form) -> None:
    other = form.new("L2")
    other.focus("Grid")
    other.delete()
    form.refused(-32602, lambda: other.Cols)
    form.list.SendKeys(65, 0)
    form.equal(form.new("L2").Cols, 1)
    form.list.SendKeys(65, 0)
    form.tells(KEY_DOWN)
