"use strict";
const data = JSON.parse(document.getElementById("data").textContent);
const WORDS = {
  en: {
    lead: "Values without a server: sort by a heading, filter, open a number to see where it comes from. In print it is a list to tick off.",
    structure: "Structure", filter: "Filter actions", codes: "Codes", all: "all values", differs: "differs from EC",
    only: "Show", i: "inherited from EC, not confirmed", c: "convention of the data set", s: "on the safe side, not compared",
    o: "the office's own value", action: "Action", name: "Name", factors: "Factors", materials: "Material factors",
    attributes: "State attributes in force", rules: "Superposition rules in force", table: "Table", column: "For",
    operator: "Operator", exclusion: "Exclusion group", combination: "Combination group", tag: "Tag", tick: "checked",
    value: "value", close: "Close", noSteps: "No element gives it.", marks: "Marks", bars: "The bars show psi from 0 to 1.",
    steps: ["a new set begins with 0", "copied from EC", "DEFAULT", "own value", "1 by being named or by a DEFAULT",
      "no number: the value stays", "counts as not given"],
    office: "office value", made: "Made by zelstandard", count: "values shown",
  },
  de: {
    lead: "Werte ohne Server: nach einer Überschrift sortieren, filtern, eine Zahl öffnen und sehen, woher sie kommt. Gedruckt ist es eine Liste zum Abhaken.",
    structure: "Bauwerk", filter: "Einwirkungen filtern", codes: "Normen", all: "alle Werte", differs: "anders als EC",
    only: "Zeige", i: "von EC übernommen, nicht bestätigt", c: "Festlegung der Datei", s: "auf der sicheren Seite, nicht verglichen",
    o: "eigener Wert des Büros", action: "Einwirkung", name: "Name", factors: "Beiwerte", materials: "Materialbeiwerte",
    attributes: "Gültige Attribute", rules: "Gültige Überlagerungsregeln", table: "Tabelle", column: "Für",
    operator: "Operator", exclusion: "Ausschlussgruppe", combination: "Kombinationsgruppe", tag: "Attribut", tick: "geprüft",
    value: "Wert", close: "Schließen", noSteps: "Kein Element gibt ihn an.", marks: "Zeichen", bars: "Die Balken zeigen psi von 0 bis 1.",
    steps: ["ein neuer Satz beginnt mit 0", "von EC übernommen", "DEFAULT", "eigener Wert", "1 durch Nennung oder durch ein DEFAULT",
      "keine Zahl: der Wert bleibt", "gilt als nicht angegeben"],
    office: "Wert des Büros", made: "Erstellt mit zelstandard", count: "Werte gezeigt",
  },
};
const t = WORDS[data.lang];
const MARKS = { INHERITED: "i", CONVENTION: "c", SAFER: "s", OFFICE: "o" };

/** An element with attributes and children; texts stay texts. */
function make(name, attributes = {}, ...children) {
  const element = document.createElement(name);
  for (const [key, value] of Object.entries(attributes))
    if (value !== null && value !== undefined && value !== false) element.setAttribute(key, value === true ? "" : value);
  element.append(...children.filter((child) => child !== null));
  return element;
}

const shown = new Set(data.codes.map(([word]) => word));

// A value is [number, status, differs, steps]; of a step see showChain.

function numberCell(value, decimals, key, isPsi, isFirst) {
  const cell = make("td", { class: "number" + (isFirst ? " first" : ""), "data-code": key.split("|")[0] });
  if (!value) {
    cell.append("–");
    return cell;
  }
  const [number, status, differs] = value;
  const mark = MARKS[data.texts[status]] || "";
  if (differs) cell.classList.add("differs");
  if (mark) cell.dataset.mark = mark;
  cell.dataset.value = number;
  cell.append(make("button", {
    type: "button", "data-key": key, style: isPsi && number > 0 ? `--psi:${Math.min(number, 1) * 100}%` : null,
    title: [differs ? t.differs : "", mark ? t[mark] : ""].filter(Boolean).join("; ") || null,
  }, number.toFixed(decimals), mark || differs ? make("sup", { class: mark ? "mark-" + mark : null }, (differs ? "≠" : "") + mark) : null));
  return cell;
}

/** A table with a heading of two rows: the codes, and below each its columns. */
function codeTable(heads, columns, rows) {
  const top = make("tr", {}, ...heads.map((head) => make("th", { rowspan: 2 }, make("button", { type: "button" }, head))));
  const below = make("tr");
  for (const [code, name] of data.codes) {
    top.append(make("th", { colspan: columns.length, class: "first", "data-code": code, title: name }, code));
    columns.forEach((column, i) => below.append(make("th", { class: i ? null : "first", "data-code": code },
      make("button", { type: "button" }, column))));
  }
  top.append(make("th", { rowspan: 2, class: "tick" }, t.tick));
  return make("div", { class: "scroll" }, make("table", {}, make("thead", {}, top, below), make("tbody", {}, ...rows)));
}

/** psi11, psi21, psi22 and crack reduction are shown where one of them is of its own. */
function shownFactors(structure) {
  const isOwn = (factor) => Object.entries(data.sets).some(([key, set]) => key.split("|")[1] === structure &&
    set[factor][0] !== (data.factors[factor][3] === factor ? 1 : set[data.factors[factor][3]][0]));
  return data.factors.map((_, i) => i).filter((i) => i < 5 || isOwn(i));
}

function factorSection([structure, structureName]) {
  const factors = shownFactors(structure);
  const rows = [];
  for (const [action, name] of data.actions) {
    const sets = data.codes.map(([code]) => data.sets[`${code}|${structure}|${action}`]);
    if (!sets.some(Boolean)) continue;
    const row = make("tr", {}, make("th", {}, action), make("td", { class: "name" }, name));
    sets.forEach((set, i) => factors.forEach((factor, j) => {
      const [key, , decimals] = data.factors[factor];
      row.append(numberCell(set && set[factor], decimals, `${data.codes[i][0]}|${structure}|${action}|${factor}`, key.startsWith("psi"), j === 0));
    }));
    row.append(make("td", { class: "tick" }));
    rows.push(row);
  }
  return make("section", { class: "structure", "data-structure": structure },
    make("h2", {}, `${t.factors}: ${structureName}`),
    codeTable([t.action, t.name], factors.map((i) => data.factors[i][1]), rows));
}

function materialSection() {
  const rows = data.materials.map(([table, column, name, values], i) => {
    const row = make("tr", {}, make("th", {}, table), make("td", {}, name), make("td", {}, column));
    for (const [code] of data.codes) row.append(numberCell(values[code], 2, `${code}|material|${i}`, false, true));
    row.append(make("td", { class: "tick" }));
    return row;
  });
  return make("section", { id: "materials" }, make("h2", {}, t.materials), codeTable([t.table, t.name, t.column], [t.value], rows));
}

function attributeSection([structure, structureName]) {
  const section = make("section", { class: "structure", "data-structure": structure }, make("h2", {}, `${t.attributes}: ${structureName}`));
  const rules = make("div", {}, make("h2", {}, `${t.rules}: ${structureName}`));
  const told = new Map(); // codes with the same list
  for (const [code] of data.codes) {
    const key = data.inForce[`${code}|${structure}`].join("|");
    told.set(key, [...(told.get(key) || []), code]);
  }
  for (const [key, codes] of told) {
    const [attributes, list] = key.split("|").map((index) => data.lists[index]);
    const heads = [t.tag, t.name, t.action, t.operator, t.exclusion, t.combination];
    section.append(make("details", {}, make("summary", {}, `${codes.join(", ")}: ${attributes.length}`), make("div", { class: "scroll" },
      make("table", {}, make("thead", {}, make("tr", {}, ...heads.map((head) => make("th", {}, make("button", { type: "button" }, head))))),
        make("tbody", {}, ...attributes.map(([tag, ...cells]) => make("tr", {}, make("th", {}, tag), ...cells.map((cell) => make("td", {}, String(cell))))))))));
    rules.append(make("h3", {}, codes.join(", ")), ...list.map(([rule, name, tags]) => make("details", {},
      make("summary", {}, `${rule} (${name}): ${tags.length}`),
      make("ul", { class: "tags" }, ...tags.map(([tag, operator]) => make("li", {}, `${tag} ${operator}`))))));
  }
  section.append(rules);
  return section;
}

/** A step is [kind, number, place, source, status, isOffice]. */
function showChain(key) {
  const [code, structure, action, factor] = key.split("|");
  const isMaterial = structure === "material";
  const value = isMaterial ? data.materials[action][3][code] : data.sets[`${code}|${structure}|${action}`][factor];
  const decimals = isMaterial ? 2 : data.factors[factor][2];
  const subject = isMaterial ? data.materials[action].slice(0, 2).join(" ")
    : `${data.factors[factor][1]}, ${action}, ${Object.fromEntries(data.structures)[structure]}`;
  const rows = value[3].map((index, i) => {
    const [kind, number, place, source, status, isOffice] = data.steps[index];
    return make("tr", {}, make("td", {}, String(i + 1)), make("td", { class: "number" }, number.toFixed(decimals)),
      make("td", {}, isOffice ? t.office : t.steps[kind] + (kind === 2 || kind === 3 ? ` ${code}` : "")), make("td", {}, data.texts[place]),
      make("td", {}, [data.texts[source], data.texts[status] && `(${data.texts[status]})`].filter(Boolean).join(" ")));
  });
  const close = make("button", { class: "close", type: "button", title: t.close, "aria-label": t.close }, "×");
  const panel = document.getElementById("chain");
  close.addEventListener("click", () => { panel.hidden = true; });
  panel.replaceChildren(close, make("h3", {}, `${code}: ${subject} = ${value[0].toFixed(decimals)}`),
    rows.length ? make("table", {}, make("tbody", {}, ...rows)) : make("p", {}, t.noSteps));
  panel.hidden = false;
}

function sortBy(button) {
  const table = button.closest("table");
  const body = table.tBodies[0];
  const heads = [...table.tHead.rows[0].cells].filter((cell) => cell.rowSpan > 1 || table.tHead.rows.length === 1).map((cell) => cell.querySelector("button"));
  const below = table.tHead.rows[1] ? [...table.tHead.rows[1].querySelectorAll("button")] : [];
  const column = [...heads.filter(Boolean), ...below].indexOf(button);
  const isDescending = button.getAttribute("aria-sort") === "ascending";
  for (const other of table.tHead.querySelectorAll("button")) other.removeAttribute("aria-sort");
  button.setAttribute("aria-sort", isDescending ? "descending" : "ascending");
  const keyOf = (row) => row.cells[column].dataset.value ?? row.cells[column].textContent;
  const rows = [...body.rows].sort((a, b) => keyOf(a).localeCompare(keyOf(b), data.lang, { numeric: true }));
  body.append(...(isDescending ? rows.reverse() : rows));
}

const filter = { text: "", only: "all", structure: data.structures[0][0] };

function apply() {
  const wanted = filter.text.trim().toLowerCase();
  for (const section of document.querySelectorAll("section.structure")) section.hidden = section.dataset.structure !== filter.structure;
  for (const cell of document.querySelectorAll("[data-code]")) cell.hidden = !shown.has(cell.dataset.code);
  for (const row of document.querySelectorAll("main > section > .scroll tbody tr")) {
    const text = row.textContent.toLowerCase();
    const isWanted = [...row.querySelectorAll("td.number")].some((cell) => !cell.hidden &&
      (filter.only === "all" || (filter.only === "differs" ? cell.classList.contains("differs") : cell.dataset.mark === filter.only)));
    row.hidden = !(text.includes(wanted) && isWanted);
  }
}

function control(label, element, event, change) {
  element.addEventListener(event, () => { change(element); apply(); });
  return make("label", {}, `${label} `, element);
}

function controls() {
  const options = (list) => list.map(([value, name]) => make("option", { value }, name));
  const codes = data.codes.map(([code]) => control("", make("input", { type: "checkbox", value: code, checked: true }), "change",
    (box) => { box.checked ? shown.add(code) : shown.delete(code); }));
  codes.forEach((label, i) => label.append(data.codes[i][0]));
  return make("div", { class: "controls" },
    control(t.structure, make("select", { id: "structure" }, ...options(data.structures)), "change", (select) => { filter.structure = select.value; }),
    control(t.filter, make("input", { type: "search", id: "filter" }), "input", (input) => { filter.text = input.value; }),
    control(t.only, make("select", { id: "only" }, ...options([["all", t.all], ["differs", t.differs], ..."icso".split("").map((mark) => [mark, t[mark]])])),
      "change", (select) => { filter.only = select.value; }),
    make("fieldset", {}, make("span", { class: "soft" }, `${t.codes}:`), ...codes));
}

function legend() {
  const marks = [["≠", null, t.differs], ...["i", "c", "s", "o"].map((mark) => [mark, "mark-" + mark, t[mark]])];
  return make("div", { class: "legend" }, ...marks.map(([sign, style, text]) => make("span", {}, make("b", { class: style }, sign), ` ${text}`)),
    make("span", { class: "soft screen" }, t.bars));
}

document.querySelector("header").append(make("h1", {}, document.title), make("p", { class: "soft screen" }, t.lead));
document.querySelector("main").append(controls(), legend(), ...data.structures.map(factorSection), materialSection(), ...data.structures.map(attributeSection));
document.querySelector("footer").append(make("p", { class: "soft" }, `${t.made} ${data.version}`));
document.addEventListener("click", (event) => {
  const button = event.target.closest("button");
  if (button?.dataset.key) showChain(button.dataset.key);
  else if (button?.closest("thead")) sortBy(button);
});
document.addEventListener("keydown", (event) => { if (event.key === "Escape") document.getElementById("chain").hidden = true; });
// "#EC|BUILDING|SNOW|2" opens the page with that number's chain.
if (location.hash.length > 1) showChain(decodeURIComponent(location.hash.slice(1)));
apply();
