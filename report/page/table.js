
// Which members are shown, in which order: without a page, so that it can be tried for itself.

const COLUMNS = [
  { key: "mark", name: "Mark", width: "14%" },
  { key: "state", name: "Status", width: "38%" },
  { key: "profile", name: "Profile", width: "16%" },
  { key: "length", name: "Length", width: "11%", isNumber: true },
  { key: "quantity", name: "Qty", width: "7%", isNumber: true },
  { key: "group", name: "Group", width: "14%" },
];

const FILTERS = [
  { key: "all", name: "All", fits: () => true },
  { key: "error", name: "Errors", fits: (row) => row.state === 3 },
  { key: "warning", name: "Warnings", fits: (row) => row.state === 2 },
  { key: "nonstandard", name: "Non-standard", fits: (row) => row.isNonStandard },
  { key: "good", name: "In order", fits: (row) => row.state === 1 },
  { key: "changed", name: "Changed", fits: (row) => row.change !== "" },
];

// The cells of a member, and all that a search looks at.
function rowOf(raw, texts, index) {
  const row = {
    index, mark: raw[0], profile: texts[raw[1]], length: raw[2], quantity: raw[3], group: texts[raw[4]], state: raw[5],
    isNonStandard: raw[6] === 1, file: raw[7], findings: raw[10].length, material: texts[raw[9]],
    change: !raw[13] ? "" : raw[13].some((change) => change[0] === "member added") ? "new" : "changed",
  };
  row.search = [row.mark, row.profile, row.material, row.group, row.file, STATES[row.state], row.change, ...raw[10].map((f) => f[1])].join("\n").toLowerCase();
  return row;
}

const KEYS = ["mark", "profile", "material", "length", "quantity", "qty", "group", "file", "status"];
const TERM = /^([a-z_]+)([<>]=|[:<>=])(.*)$/;

// Blanks around operators belong to them.
const wordsOf = (query) => query.toLowerCase().replace(/([a-z_])\s*([<>]=|[:<>=])\s*/g, "$1$2").split(/\s+/).filter(Boolean);

// What looks like a column and is none, in words.
function unknownKeys(query) {
  const keys = wordsOf(query).map((word) => (TERM.exec(word) || [])[1]).filter((key) => key && !KEYS.includes(key));
  return keys.length ? `no column is called ${keys.join(", ")}; there are ${KEYS.join(", ")}` : "";
}

// One word of a filter: `text`, `column:text`, `column<number`, `column<=number`, `column>number`, `column>=number`
// or `column=value`.
function termOf(word) {
  const [, key, sign, value] = TERM.exec(word) || [];
  if (!KEYS.includes(key)) return (row) => row.search.includes(word);
  if (!value) return () => true;
  const column = key === "qty" ? "quantity" : key;
  const cell = (row) => (column === "status" ? STATES[row.state] : row[column]);
  if (sign === "<") return (row) => Number(cell(row)) < Number(value);
  if (sign === ">") return (row) => Number(cell(row)) > Number(value);
  if (sign === "<=") return (row) => Number(cell(row)) <= Number(value);
  if (sign === ">=") return (row) => Number(cell(row)) >= Number(value);
  if (sign === "=") return (row) => String(cell(row)).toLowerCase() === value;
  return (row) => String(cell(row)).toLowerCase().includes(value);
}

function filtered(rows, query, state) {
  const terms = wordsOf(query).map(termOf);
  const { fits } = FILTERS.find((filter) => filter.key === state) || FILTERS[0];
  return rows.filter((row) => fits(row) && terms.every((term) => term(row)));
}

const byText = new Intl.Collator("en", { numeric: true }).compare;

// Status begins with the worst; equal ones stay in their order.
function sorted(rows, key, isDown) {
  const { isNumber } = COLUMNS.find((column) => column.key === key) || {};
  const sign = isDown ? -1 : 1;
  const compare = key === "state" ? (a, b) => b.state - a.state || b.findings - a.findings
    : isNumber ? (a, b) => a[key] - b[key] : (a, b) => byText(a[key], b[key]);
  return [...rows].sort((a, b) => sign * compare(a, b) || a.index - b.index);
}
