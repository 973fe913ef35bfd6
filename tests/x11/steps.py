"""What people do in the gallery, and what comes of it. Each step gets a window of its own."""

import datetime
import pathlib

from desktop import expect, wait
from gallery import center, has, parts, top

# The one that has Debian's modules.
SYSTEM_PYTHON = "/usr/bin/python3"


def text_is_typed_into_a_row(gallery):
    gallery.edit("Home", "Fix the garden gate")
    gallery.desktop.key("ctrl+a")
    gallery.desktop.type("Brötchen, typed")
    expect(gallery.focus, ("Home", "Title", "Brötchen, typed"), "text in the field")
    gallery.picture("typing")
    gallery.desktop.key("Tab")
    gallery.expect_said("Home: edits 1.1")
    expect(lambda: gallery.section("Home", "This week"),
           ["Return the library books", "Brötchen, typed", "Bake for the school fair"],
           "the row that was typed into")


def tab_goes_through_fields_and_rows(gallery):
    gallery.edit("Home", "Water the tomatoes")
    # Some rows have no note.
    stops = [("Home", "Title", "Water the tomatoes"),
             ("Home", "Note", "The ones on the balcony, too"),
             ("Home", "Title", "Call the dentist"), ("Home", "Title", "Buy milk, bread and eggs"),
             ("Home", "Note", "Rye, if they have it")]
    for stop in stops[1:]:
        gallery.desktop.key("Tab")
        expect(gallery.focus, stop, "Tab")
    gallery.picture("tab")
    for stop in reversed(stops[:-1]):
        gallery.desktop.key("shift+Tab")
        expect(gallery.focus, stop, "Shift and Tab")


def return_inserts_rows(gallery):
    gallery.edit("Work", "Review the floor plan")
    gallery.desktop.key("Return")
    expect(gallery.focus, ("Work", "Title", ""), "a row to fill in")
    gallery.desktop.type("First")
    gallery.desktop.key("Return")
    gallery.expect_said("Work: inserts 0.2")
    expect(gallery.focus, ("Work", "Title", ""), "another row to fill in")
    gallery.desktop.type("Second")
    gallery.picture("inserting")
    gallery.desktop.key("Return")
    gallery.expect_said("Work: inserts 0.2", "Work: inserts 0.3")
    expect(gallery.focus, ("Work", "Title", ""), "a third row to fill in")
    gallery.desktop.key("Escape")
    expect(lambda: gallery.section("Work", "Next"),
           ["Send the offer to the printers", "Review the floor plan", "First", "Second",
            "Book a room for Thursday"], "rows inserted, and none that is empty")


def tab_after_the_last_row_adds_one(gallery):
    before = gallery.titles("Home")
    gallery.edit("Home", before[-1])
    gallery.desktop.key("Tab")
    expect(gallery.focus, ("Home", "Title", ""), "a row to fill in")
    gallery.desktop.key("Escape")
    expect(lambda: gallery.titles("Home"), before, "no row that is empty")


def rows_grow_with_their_text(gallery):
    gate, fair = gallery.row("Home", "Fix the garden gate"), "Bake for the school fair"
    below = top(gallery.row("Home", fair))
    gallery.edit("Home", gallery.title(gate))
    gallery.desktop.key("End")
    gallery.desktop.type(" and the fence, and whatever else has come loose in the storm")
    wait(lambda: top(gallery.row("Home", fair)) > below, "for the rows below to give way")
    gallery.picture("growing")
    # Elsewhere in the table, in another one: both end it.
    gallery.click("Work", "Review the floor plan")
    gallery.expect_said("Home: edits 1.1", "Work: selects 0.1")
    expect(gallery.focus, ("Work", "Review the floor plan"), "the focus")


def the_wheel_and_drags_near_the_edge_scroll(gallery):
    desktop = gallery.desktop
    bottom = lambda: top(gallery.host("Home")) + gallery.host("Home")["rect"][3]
    first, last = gallery.titles("Home")[0], gallery.titles("Home")[-1]
    desktop.resize(gallery.window, 1240, 480)
    wait(lambda: top(gallery.row("Home", last)) > bottom(), "for a row that is out of sight")
    start = top(gallery.row("Home", first))
    desktop.do("mousemove", *center(gallery.row("Home", first)), "click", "--repeat", 9, 5)
    wait(lambda: top(gallery.row("Home", last)) < bottom(), "for the wheel")
    desktop.do("click", "--repeat", 9, 4)
    wait(lambda: top(gallery.row("Home", first)) == start, "for the wheel back")
    edge = (center(gallery.row("Home", first))[0], bottom() - 6)
    desktop.drag(center(gallery.row("Home", first)), edge,
                 lambda: top(gallery.row("Home", last)) + 20 < bottom(),
                 lambda: gallery.picture("drag-scrolling"))
    wait(lambda: first in gallery.section("Home", "Some day"), "for the row at the end")


def the_filter_hides_rows(gallery):
    gallery.press("EditableText", "Filter")
    gallery.desktop.type("the ")
    expect(lambda: gallery.titles("Work"), ["Send the offer to the printers",
           "Review the floor plan", "Numbers from the accountant", "New key for the archive"],
           "rows with the text")
    gallery.click("Work", "Review the floor plan")
    gallery.desktop.key("Down")
    expect(lambda: gallery.selected("Work"), ["Numbers from the accountant"], "the next row shown")
    gallery.picture("filtered")


def the_window_closes_while_a_row_is_edited(gallery):
    gallery.edit("Home", "Call the dentist")
    gallery.desktop.type("x")
    gallery.desktop.key("alt+F4")
    expect(gallery.process.poll, 0, "the end of the program")


def escape_leads_out(gallery):
    gallery.edit("Home", "Call the dentist")
    gallery.desktop.key("End")
    gallery.desktop.type(" again")
    gallery.desktop.key("Escape")
    expect(gallery.focus, ("Home", "Call the dentist again"), "the focus on the row")
    gallery.expect_said("Home: edits 0.1")
    gallery.picture("escaped")
    gallery.desktop.key("Escape")
    gallery.expect_said("Home: is left")


def clicks_and_keys_select(gallery):
    today = gallery.section("Home", "Today")
    week = gallery.section("Home", "This week")
    selected = lambda: gallery.selected("Home")
    gallery.click("Home", today[1])
    expect(selected, [today[1]], "a click")
    gallery.click("Home", week[0], holding="shift")
    expect(selected, [*today[1:], week[0]], "a click with Shift")
    gallery.click("Home", today[2], holding="ctrl")
    expect(selected, [today[1], today[3], week[0]], "a click with Command on a selected row")
    gallery.click("Home", week[2], holding="ctrl")
    expect(selected, [today[1], today[3], week[0], week[2]], "a click with Command")
    gallery.picture("selection")
    gallery.click("Home", today[0])
    gallery.desktop.key("shift+Down", "shift+Down")
    expect(selected, today[:3], "Shift and Down")
    gallery.desktop.key("shift+Up")
    expect(selected, today[:2], "Shift and Up")
    gallery.desktop.key("Down")
    expect(selected, [today[2]], "Down")
    gallery.desktop.key("ctrl+a")
    expect(selected, gallery.titles("Home"), "Command and A")


def keys_move_rows(gallery):
    books, gate, fair = gallery.section("Home", "This week")
    gallery.click("Home", gate)
    gallery.desktop.key("shift+Down")
    expect(lambda: gallery.selected("Home"), [gate, fair], "the selection")
    gallery.desktop.key("alt+Up")
    gallery.expect_said("Home: begins to move rows", "Home: moves 1.1", "Home: moves 1.2",
                        "Home: has moved rows")
    expect(lambda: gallery.section("Home", "This week"), [gate, fair, books], "Alt and Up")
    expect(lambda: gallery.selected("Home"), [gate, fair], "the selection")
    gallery.picture("moved-by-key")
    gallery.desktop.key("alt+Down")
    expect(lambda: gallery.section("Home", "This week"), [books, gate, fair], "Alt and Down")


def a_row_is_dragged_inside_a_table(gallery):
    tomatoes, dentist, milk, letter = gallery.section("Home", "Today")
    first = gallery.row("Home", tomatoes)
    gallery.drag("Home", milk, "Home", center(first, dy=-first["rect"][3] // 2 + 5),
                 "drag-inside")
    gallery.expect_said("Home: begins to move rows", "Home: moves 0.2", "Home: has moved rows")
    expect(lambda: gallery.section("Home", "Today"), [milk, tomatoes, dentist, letter],
           "the row is where it was dropped")


def escape_ends_a_drag(gallery):
    before = gallery.section("Home", "Today")
    start, end = center(gallery.row("Home", before[2])), center(gallery.row("Home", before[0]))
    gallery.desktop.drag(start, end, lambda: gallery.indicator("Home"),
                         lambda: gallery.desktop.key("Escape"))
    wait(lambda: not gallery.indicator("Home"), "for the end")
    # Whatever a drop would have done would be done by then.
    gallery.click("Home", before[3])
    expect(lambda: gallery.selected("Home"), [before[3]], "a click afterwards")
    expect(lambda: gallery.section("Home", "Today"), before, "the rows")


def rows_are_dragged_to_another_table(gallery):
    tomatoes, dentist, milk, letter = gallery.section("Home", "Today")
    offer, plan, room = gallery.section("Work", "Next")
    gallery.click("Home", dentist)
    gallery.click("Home", milk, holding="shift")
    expect(lambda: gallery.selected("Home"), [dentist, milk], "the selection")
    gallery.drag("Home", milk, "Work", center(gallery.row("Work", plan)), "drag-across")
    expect(lambda: gallery.section("Home", "Today"), [tomatoes, letter], "what has gone")
    expect(lambda: sorted(gallery.section("Work", "Next")),
           sorted([offer, plan, room, dentist, milk]), "what has come")


def a_row_is_dragged_to_the_list(gallery):
    items = gallery.titles("Shopping")
    milk = "Buy milk, bread and eggs"
    gallery.drag("Home", milk, "Shopping", center(gallery.row("Shopping", items[1]), dy=-8),
                 "drag-to-list")
    gallery.expect_said("Shopping: rows are dropped before 1", "Home: deletes 0.2")
    expect(lambda: gallery.titles("Shopping"), [items[0], milk, *items[1:]], "the list")
    expect(lambda: milk in gallery.titles("Home"), False, "the row has gone")


def an_item_is_dragged_inside_the_list_and_to_a_table(gallery):
    flour, yeast, *others = gallery.titles("Shopping")
    gallery.drag("Shopping", yeast, "Shopping", center(gallery.row("Shopping", flour), dy=-8),
                 "drag-item")
    expect(lambda: gallery.titles("Shopping"), [yeast, flour, *others], "the list")
    gallery.drag("Shopping", flour, "Work", center(gallery.rows("Work")[0]), "drag-item-to-table")
    expect(lambda: gallery.titles("Shopping"), [yeast, *others], "the list")
    wait(lambda: flour in gallery.titles("Work"), "for the item to be a row")


def items_of_the_list_are_edited(gallery):
    flour, yeast, *others = gallery.titles("Shopping")
    gallery.click("Shopping", flour)
    wait(lambda: (gallery.focus() or "")[::2] == ("Shopping", flour), "for the item's field")
    gallery.desktop.key("End")
    gallery.desktop.type(", white")
    gallery.desktop.key("Return")
    expect(lambda: gallery.titles("Shopping"), ["Flour, white", "", yeast, *others], "Return")
    gallery.desktop.type("Salt")
    gallery.desktop.key("Tab")
    gallery.expect_said("Shopping: edits 0", "Shopping: inserts 1")
    gallery.picture("list")
    gallery.desktop.key("Escape")
    expect(lambda: gallery.titles("Shopping"), ["Flour, white", "Salt", yeast, *others], "the list")


def urls_are_dragged_in_from_another_process(gallery):
    desktop = gallery.desktop
    place = (1200, 740)
    for name_format in ("text/x-moz-url-desc", "_NETSCAPE_URL"):
        name = f"Bread by {name_format}"
        source = desktop.start([SYSTEM_PYTHON, pathlib.Path(__file__).with_name("url_source.py"),
                                "https://example.org/bread", name, name_format])
        desktop.do("windowmove", "--sync", desktop.window("URL source"), *place)
        desktop.drag((place[0] + 80, place[1] + 30),
                     center(gallery.row("Work", "Numbers from the accountant")),
                     lambda: gallery.indicator("Work"), lambda: gallery.picture("drag-url"))
        wait(lambda: name in gallery.section("Work", "Waiting for"), "for a row of that name")
        desktop.stop(source)
    gallery.expect_said("Work: a URL is dropped on 1.0", "Work: a URL is dropped on 1.0")


def the_menu_deletes_and_the_box_checks(gallery):
    books, gate, fair = gallery.section("Home", "This week")
    gallery.click("Home", gate, button=3)
    delete = lambda: next((part for part in gallery.all_parts() if part["role"] == "MenuItem"
                           and part.get("name") == "Delete"), None)
    item = wait(delete, "for the menu")
    gallery.picture("menu")
    gallery.desktop.click(center(item))
    expect(lambda: gallery.section("Home", "This week"), [books, fair], "the menu's deletion")
    x, y, _, height = gallery.row("Home", fair)["rect"]
    gallery.desktop.click((x + 16, y + height // 2))
    gallery.expect_said("Home: box was clicked of 1.1")
    gallery.click("Home", books)
    gallery.desktop.key("Delete")
    expect(lambda: gallery.section("Home", "This week"), [fair], "the deletion by key")


def an_empty_clipboard_pastes_nothing(gallery):
    # What the programs of the steps before copied has gone with them.
    gallery.edit("Work", "Review the floor plan")
    gallery.desktop.key("End", "ctrl+v")
    gallery.desktop.type("!")
    expect(gallery.focus, ("Work", "Title", "Review the floor plan!"), "the text")


def text_is_cut_pasted_and_undone(gallery):
    gallery.edit("Work", "Review the floor plan")
    gallery.desktop.key("ctrl+a", "ctrl+x")
    expect(gallery.focus, ("Work", "Title", ""), "the text is cut")
    gallery.desktop.key("ctrl+z")
    expect(gallery.focus, ("Work", "Title", "Review the floor plan"), "the cut is undone")
    gallery.desktop.key("Tab", "ctrl+a", "ctrl+v")
    expect(gallery.focus, ("Work", "Title", "Review the floor plan"), "the text is pasted")


# The other pages.

TODAY = datetime.date.today()


def day_name(day):
    return f"{day:%A, %B} {day.day}, {day.year}"


def dates_are_typed(gallery):
    gallery.open("Dates")
    gallery.press("EditableText", "Due")
    gallery.desktop.key("ctrl+a")
    gallery.desktop.type("tomorrow")
    wait(lambda: gallery.pop_over("Button"), "for the chooser")
    gallery.picture("date-typed")
    gallery.desktop.key("Tab")
    gallery.expect_said(f"Due: {TODAY + datetime.timedelta(1)}")
    expect(lambda: gallery.value("EditableText", "Due"), "Tomorrow", "what the field shows")
    expect(gallery.focused, ("EditableText", "Day"), "the next field")
    gallery.desktop.key("ctrl+a")
    gallery.desktop.type("Dec 5, 2031")
    gallery.desktop.key("Return")
    gallery.expect_said("Day: 2031-12-05")
    gallery.desktop.key("ctrl+a")
    gallery.desktop.type("no day")
    gallery.desktop.key("Tab")
    gallery.expect_said("Day: none")
    expect(lambda: gallery.value("EditableText", "Day"), "", "a field without a day")
    gallery.desktop.key("ctrl+a")
    gallery.desktop.type("17:45")
    gallery.desktop.key("Tab")
    gallery.expect_said("Time: 17:45:00")


def a_chooser_is_used_while_one_types(gallery):
    gallery.open("Dates")
    gallery.press("EditableText", "Day")
    gallery.desktop.key("ctrl+a")
    gallery.desktop.type("Mar 8, 2027")
    selected = lambda: [part["name"] for part in gallery.pop_over("Button")
                        if has(part, "selected")]
    expect(selected, [day_name(datetime.date(2027, 3, 8))], "the day that is typed")
    # The letters stay where they are; the keys that mean nothing to a line go to the chooser.
    gallery.desktop.key("Down", "Right")
    gallery.picture("chooser-by-keys")
    expect(gallery.focused, ("EditableText", "Day"), "the focus")
    gallery.desktop.key("Return")
    gallery.expect_said("Day: 2027-03-16")
    gallery.press("EditableText", "Day")
    gallery.desktop.click(center(gallery.in_pop_over("Button", day_name(datetime.date(2027, 3, 24)))))
    gallery.expect_said("Day: 2027-03-16", "Day: 2027-03-24")
    expect(gallery.focused, ("EditableText", "Day"), "the focus after the click")


def tab_goes_round_the_window(gallery):
    gallery.open("Choices")
    stops = [gallery.tab()]
    while len(stops) < 40 and (stop := gallery.tab()) != stops[0]:
        stops.append(stop)
    names = [name for _, name in stops]
    for name in ("State", "Room", "Action", "View", "Place", "Priority", "Starred", "Archived",
                 "Dark"):
        wait(lambda: name in names, f"{name} among {names}")
    wait(lambda: "Disabled" not in names, "a disabled control is passed over")
    gallery.desktop.key("shift+Tab")
    expect(gallery.focused, stops[-1], "back from the first stop")
    gallery.picture("tab-round")


def a_toolbar_is_used(gallery):
    gallery.open("Bars")
    gallery.press("Button", "Complete")
    gallery.expect_said("Toolbar: Complete")
    gallery.press("ButtonMenu", "Sort by")
    gallery.desktop.click(center(gallery.in_pop_over("MenuItem", "Due")))
    gallery.expect_said("Toolbar: Due")
    gallery.press("RadioButton", "Board")
    gallery.expect_said("Toolbar: View")
    # By keys alone.
    while gallery.tab() != ("Button", "New Task"):
        pass
    gallery.desktop.key("Right", "Right", "space")
    gallery.expect_said("Toolbar: Delete")
    gallery.press("CheckBox", "Actions are valid")
    wait(lambda: has(gallery.part("Button", "Delete"), "disabled"), "for the action to be disabled")
    gallery.picture("toolbar")


def pop_ups_are_used(gallery):
    gallery.open("Choices")
    gallery.press("ButtonMenu", "State")
    gallery.desktop.click(center(gallery.in_pop_over("MenuItem", "On Hold")))
    gallery.expect_said("State: On Hold")
    # By keys alone.
    while gallery.tab() != ("ButtonMenu", "Room"):
        pass
    gallery.desktop.key("Down")
    gallery.in_pop_over("MenuItem", "Garden")
    gallery.picture("pop-up")
    gallery.desktop.key("Down", "Down", "Return")
    wait(lambda: any(line.startswith("Room: ") for line in gallery.said()), "for a room")
    # Letters choose without a menu.
    gallery.desktop.type("att")
    gallery.expect_said("Room: Attic")
    while gallery.tab()[1] != "Priority":
        pass
    gallery.desktop.key("End", "Home")
    gallery.expect_said("Priority: Trivial", "Priority: Critical")


def a_sheet_must_be_answered(gallery):
    gallery.open("Bars")
    form = gallery.wait_for("Button", "Form in a Sheet…")
    gallery.desktop.click(center(form))
    sheet = wait(lambda: next((part for part in gallery.all_parts()
                               if part["role"] == "Dialog"), None), "for the sheet")
    expect(gallery.focused, ("EditableText", "Title"), "the first field")
    gallery.desktop.key("ctrl+a")
    gallery.desktop.type("From the sheet")
    gallery.picture("sheet")
    # What lies below takes nothing.
    gallery.desktop.click(center(gallery.part("ListItem", "Icons")))
    wait(lambda: any(part["role"] == "Dialog" for part in gallery.all_parts()), "the sheet stays")
    gallery.desktop.click(center(next(part for part in parts(sheet, "Button")
                                      if part.get("name") == "OK")))
    gallery.expect_said("Task: Title is “From the sheet”", "Task: OK", "Sheet: ended")
    wait(lambda: has(gallery.part("ListItem", "Bars"), "selected"), "for the page to be the same")
    gallery.desktop.click(center(form))
    expect(gallery.focused, ("EditableText", "Title"), "the first field")
    gallery.desktop.key("Escape")
    gallery.expect_said("Task: OK", "Task: Cancel", "Sheet: ended")


def a_panel_is_moved_and_closed(gallery):
    gallery.open("Bars")
    gallery.press("Button", "Form in a Panel…")
    panel = lambda: next((part for part in gallery.all_parts() if part["role"] == "Dialog"), None)
    x, y, width, _ = wait(panel, "for the panel")["rect"]
    gallery.desktop.do("mousemove", x + width // 2, y + 8, "mousedown", 1, "mousemove",
                       x + width // 2 + 60, y + 8, "mousemove", x + width // 2 + 120, y + 8,
                       "mouseup", 1)
    expect(lambda: panel()["rect"][0], x + 120, "the panel's place")
    gallery.picture("panel")
    gallery.press("Button", "Share")
    gallery.expect_said("Title bar: share")
    gallery.press("EditableText", "Title")
    gallery.desktop.key("Escape", "Escape")
    gallery.expect_said("Panel: closed")


def a_task_is_dragged_to_another_view(gallery):
    gallery.open("Overview")
    candles = lambda: next((part for part in gallery.all_parts() if part["role"] == "ListItem"
                            and any(field.get("value") == "Buy candles"
                                    for field in parts(part, "EditableText"))), None)
    row = wait(candles, "for the row")
    target = gallery.part("ListItem", "Next")
    views = lambda: next(part for part in gallery.all_parts()
                         if part["role"] == "List" and part.get("name") == "Views")
    indicator = lambda: next((part for part in views().get("children", [])
                              if part["role"] == "Graphic"), None)
    gallery.desktop.drag(center(row), center(target), indicator,
                         lambda: gallery.picture("drag-to-view"))
    gallery.expect_said("Overview: moves 1 to Next")
    wait(lambda: not candles(), "for the row to go")
    gallery.press("ListItem", "Next")
    gallery.expect_said("Overview: shows Next")
    wait(candles, "for the row to come")


def a_list_is_searched(gallery):
    gallery.open("Overview")
    gallery.desktop.key("ctrl+f")
    expect(gallery.focused, ("EditableText", "Search"), "the search field")
    gallery.desktop.type("candles")
    gallery.expect_said("Overview: searches for candles")
    titles = lambda: [field.get("value") for part in gallery.all_parts()
                      if part["role"] == "ListItem" for field in parts(part, "EditableText")
                      if field.get("name") == "Title"]
    expect(titles, ["Buy candles"], "the rows that match")
    gallery.picture("search")
    gallery.desktop.key("Escape")
    wait(lambda: len(titles()) > 1, "for all rows")
    gallery.desktop.key("Escape")
    wait(lambda: not gallery.part("EditableText", "Search"), "for the bar to go")


STEPS = [text_is_typed_into_a_row, tab_goes_through_fields_and_rows, return_inserts_rows,
         tab_after_the_last_row_adds_one, rows_grow_with_their_text,
         the_wheel_and_drags_near_the_edge_scroll, the_filter_hides_rows,
         the_window_closes_while_a_row_is_edited, escape_leads_out, clicks_and_keys_select,
         keys_move_rows, a_row_is_dragged_inside_a_table, escape_ends_a_drag,
         rows_are_dragged_to_another_table, a_row_is_dragged_to_the_list,
         an_item_is_dragged_inside_the_list_and_to_a_table,
         urls_are_dragged_in_from_another_process, items_of_the_list_are_edited,
         the_menu_deletes_and_the_box_checks, an_empty_clipboard_pastes_nothing,
         text_is_cut_pasted_and_undone, dates_are_typed, a_chooser_is_used_while_one_types,
         tab_goes_round_the_window, a_toolbar_is_used, pop_ups_are_used, a_sheet_must_be_answered,
         a_panel_is_moved_and_closed, a_task_is_dragged_to_another_view, a_list_is_searched]
