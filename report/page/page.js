
(() => {
  const ROW = 28, MARGIN = 20, MOST_PRINTED_ROWS = 1000, MOST_PRINTED_DRAWINGS = 60, MOST_PRINTED_BARS = 500;
  const PAPER = { width: 700, height: 0.5, windows: 2, isSplit: true };
  const el = (id) => document.getElementById(id);
  const data = JSON.parse(el("data").textContent);
  const all = data.members.map((raw, index) => rowOf(raw, data.texts, index));
  const view = { query: "", state: "all", key: "", isDown: false, mark: "", rows: all, member: null, feature: -1 };

  const statusHtml = (state) => `<span class="status"><svg class="drawing" viewBox="-6 -6 12 12" aria-hidden="true">${Drawing.symbol(state, 0, 0)}</svg>${STATES[state]}</span>`;

  const tagsHtml = (row) => (row.isNonStandard ? ' <span class="tag">non-standard</span>' : "") + (row.change ? ` <span class="tag change">${row.change}</span>` : "");

  // ---- the table: only the rows in sight exist -------------------------------------------------------------

  function cellHtml(row, column) {
    const value = column.key === "state" ? statusHtml(row.state) + tagsHtml(row)
      : column.isNumber ? number(row[column.key], 2) : escaped(row[column.key]);
    return `<td${column.isNumber ? ' class="right"' : ""}${column.isNumber || column.key === "state" ? "" : ` title="${escaped(row[column.key])}"`}>${value}</td>`;
  }

  function rowHtml(row, position) {
    const isChosen = view.member && view.member.index === row.index;
    return `<tr data-row="${row.index}" aria-rowindex="${position + 2}"${isChosen ? ' class="chosen" aria-current="true"' : ""}>${COLUMNS.map((column) => cellHtml(row, column)).join("")}</tr>`;
  }

  const spacer = (height) => (height > 0 ? `<tr aria-hidden="true"><td colspan="${COLUMNS.length}" style="height:${height}px"></td></tr>` : "");

  function writeRows(from, to) {
    el("above").innerHTML = spacer(from * ROW);
    el("rows").innerHTML = view.rows.slice(from, to).map((row, i) => rowHtml(row, from + i)).join("");
    el("below").innerHTML = spacer((view.rows.length - to) * ROW);
  }

  function showRows() {
    const list = el("list"), first = Math.floor(list.scrollTop / ROW);
    const from = Math.max(0, Math.min(first - MARGIN, view.rows.length));
    writeRows(from, Math.min(view.rows.length, first + Math.ceil(list.clientHeight / ROW) + MARGIN));
  }

  function showHeadings() {
    el("headings").innerHTML = COLUMNS.map((column) => {
      const isSorted = view.key === column.key, order = isSorted ? (view.isDown ? "descending" : "ascending") : "none";
      const arrow = isSorted ? (view.isDown ? " ▼" : " ▲") : "";
      return `<th scope="col" style="width:${column.width}"${column.isNumber ? ' class="right"' : ""} aria-sort="${order}"><button type="button" data-key="${column.key}">${column.name}<span aria-hidden="true">${arrow}</span></button></th>`;
    }).join("");
  }

  function showStates() {
    const hasChanges = all.some((row) => row.change);
    el("states").innerHTML = FILTERS.filter((filter) => filter.key !== "changed" || hasChanges).map((filter) =>
      `<button type="button" data-state="${filter.key}" aria-pressed="${view.state === filter.key}">${filter.name} ${all.filter(filter.fits).length}</button>`).join(" ");
  }

  function applyFilter() {
    view.rows = filtered(all, view.query, view.state);
    if (view.key) view.rows = sorted(view.rows, view.key, view.isDown);
    el("table").setAttribute("aria-rowcount", view.rows.length + 1);
    const unknown = view.rows.length ? "" : unknownKeys(view.query);
    el("count").textContent = `${view.rows.length} of ${all.length} members${unknown && ": " + unknown}`;
    el("list").scrollTop = 0;
    showRows();
    keepHash();
  }

  // ---- one member ------------------------------------------------------------------------------------------

  function featureRow(member, feature) {
    const cells = [feature.line || "", member.faces[feature.face].name, feature.shape, Drawing.sizeText(feature),
      number(feature.told[0], 2), number(feature.told[1], 2), feature.code || feature.text];
    const words = feature.state === 0 ? escaped(feature.remark || STATES[0]) : statusHtml(feature.state) + (feature.remark ? " " + escaped(feature.remark) : "");
    const [line, ...others] = cells.map(escaped);
    return `<tr data-feature="${feature.index}" class="${STATE_CLASSES[feature.state]}"><td><button type="button" class="link" aria-label="Show feature ${feature.index + 1}${line ? `, line ${line}` : ""}">${line || feature.index + 1}</button></td>` +
      others.map((cell) => `<td>${cell}</td>`).join("") + `<td>${words}</td></tr>`;
  }

  const wordOf = (finding) => (finding.isNonStandard ? "Non-standard" : finding.state === 3 ? "Error" : "Warning");
  const withCode = (text) => escaped(text).replace(/`([^`]*)`/g, "<code>$1</code>");

  // Of findings in a row with one remedy the last has it.
  function remedyHtml(findings, i) {
    const { remedy } = findings[i];
    return i + 1 < findings.length && findings[i + 1].remedy === remedy ? "" : `<span class="remedy">${withCode(remedy)}</span>`;
  }

  function findingHtml(member, finding, i) {
    const isKnown = finding.line && member.features.some((feature) => feature.line === finding.line);
    const words = `${i + 1}. <b>${wordOf(finding)}:</b> ${escaped(finding.text)}${finding.line ? ` (line ${finding.line})` : ""}`;
    return `<li data-line="${finding.line}" class="${finding.state === 3 ? "is-error" : "is-warning"}">${isKnown ? `<button type="button" class="link" data-line="${finding.line}">${words}</button>` : words}` +
      ` <span class="rule">${escaped(finding.rule)}</span>${remedyHtml(member.findings, i)}</li>`;
  }

  function findingsHtml(member) {
    if (!member.findings.length) return "<p>Nothing was found.</p>";
    return `<ul class="findings">${member.findings.map((finding, i) => findingHtml(member, finding, i)).join("")}</ul>`;
  }

  const barsOf = (mark) => [...document.querySelectorAll(`#plans g[data-mark="${CSS.escape(mark)}"]`)];

  // "1 to 7, 12": [first, last] of bars that are cut alike, ascending.
  function rangesText(ranges) {
    const joined = [];
    for (const [first, last] of ranges) {
      const before = joined[joined.length - 1];
      if (before && before[1] >= first - 1) before[1] = Math.max(before[1], last);
      else joined.push([first, last]);
    }
    return joined.map(([first, last]) => (last > first ? `${first} to ${last}` : first)).join(", ");
  }

  const barWord = (ranges) => (ranges.length > 1 || ranges[0][0] !== ranges[0][1] ? "bars" : "bar");

  function barsText(mark) {
    if (!el("plans")) return "";
    const places = new Map();
    for (const piece of barsOf(mark)) {
      const bar = piece.closest("li"), plan = bar.closest("ol").dataset.plan;
      const [first, last = first] = bar.querySelector(".number").textContent.split(" to ").map(Number);
      (places.get(plan) || places.set(plan, []).get(plan)).push([first, last]);
    }
    return [...places].map(([plan, ranges]) => `${plan}, ${barWord(ranges)} ${rangesText(ranges)}`).join("; ") || "no bar: none is planned for it";
  }

  function factsHtml(member) {
    const facts = [["Profile", member.profile], ["Material", member.material], ["Length", number(member.length, 2) + " mm"], ["Quantity", member.quantity],
      ["Group", member.group], ["File", member.file], ["Features", member.accounts], ["Cut from", barsText(member.mark)]];
    return `<dl class="facts">${facts.filter(([, value]) => value !== "").map(([name, value]) => `<div><dt>${name}</dt><dd>${escaped(value)}</dd></div>`).join("")}</dl>`;
  }

  function changesHtml(member) {
    if (!member.changes.length) return "";
    const rows = member.changes.map((change) => `<tr>${change.map((text) => `<td>${escaped(text)}</td>`).join("")}</tr>`).join("");
    return `<div class="wide changes" tabindex="0" role="region" aria-label="Changes"><table><caption>Changed since the earlier output</caption><thead><tr><th scope="col">What</th><th scope="col">Before</th><th scope="col">Now</th></tr></thead><tbody>${rows}</tbody></table></div>`;
  }

  // What the signs of a drawing say.
  function keyHtml(member) {
    const earlier = '<span class="status"><svg class="drawing" viewBox="-6 -6 12 12" aria-hidden="true"><path class="cross" d="M-4 -4l8 8M-4 4l8 -8"/></svg>earlier place</span>';
    return `<p class="key">${[1, 2, 3, 0].map(statusHtml).join("")}${member.earlier.length ? earlier : ""}<span><b>1</b> number of a finding</span><span>S14: code for the machine; where codes have no room, the table has them</span></p>`;
  }

  function featuresHtml(member) {
    if (!member.features.length) return "";
    const headings = ["Line", "Face", "Shape", "Size", "X", "Y", "Code", "Status"].map((name) => `<th scope="col">${name}</th>`).join("");
    return `<div class="features" tabindex="0" aria-label="Features"><table><caption class="unseen">Features of ${escaped(member.mark)}</caption><thead><tr>${headings}</tr></thead><tbody>${member.features.map((feature) => featureRow(member, feature)).join("")}</tbody></table></div>`;
  }

  const headHtml = (member) => `<h3><bdi>${escaped(member.mark)}</bdi> ${statusHtml(member.state)}${tagsHtml(all[member.index])}</h3>${factsHtml(member)}${findingsHtml(member)}${changesHtml(member)}`;

  function memberAt(index) {
    return Object.assign(memberOf(data.members[index], data.texts), { index });
  }

  function showMember() {
    const { member } = view;
    el("member").innerHTML = headHtml(member) +
      (member.faces.length ? `<div id="drawing"></div>${keyHtml(member)}<p class="help">Click a feature, or press ← and → here: the window follows it. Esc lets go.</p>` : "<p>This member is not drawn: the page would be too large.</p>") +
      featuresHtml(member);
    showDrawing();
    for (const piece of document.querySelectorAll("#plans g.chosen")) piece.classList.remove("chosen");
    for (const piece of barsOf(member.mark)) piece.classList.add("chosen");
  }

  // As wide as its place, so that letters have their own size.
  const drawingWidth = () => Math.round(Math.min(1100, Math.max(320, el("member").clientWidth)));

  function showDrawing() {
    const { member, feature } = view;
    view.width = drawingWidth();
    if (member.faces.length) el("drawing").innerHTML = Drawing.svgOf(member, { chosen: feature, width: view.width });
    const line = feature >= 0 ? member.features[feature].line : 0;
    for (const item of el("member").querySelectorAll(".findings li")) item.classList.toggle("chosen", line > 0 && Number(item.dataset.line) === line);
    for (const row of el("member").querySelectorAll("tr[data-feature]")) {
      const index = Number(row.dataset.feature);
      row.classList.toggle("chosen", index === feature || (line > 0 && member.features[index].line === line));
    }
  }

  function chooseFeature(index) {
    view.feature = index === view.feature ? -1 : index;
    showDrawing();
    const box = el("member").querySelector(".features"), row = box && box.querySelector("tr.chosen");
    if (row && (row.offsetTop < box.scrollTop + 30 || row.offsetTop + row.offsetHeight > box.scrollTop + box.clientHeight))
      box.scrollTop = row.offsetTop - box.clientHeight / 2;
  }

  function stepFeature(step) {
    const { features } = view.member;
    if (features.length) chooseFeature(view.feature < 0 ? (step > 0 ? 0 : features.length - 1) : (view.feature + step + features.length) % features.length);
  }

  function chooseMember(index) {
    const member = memberAt(index);
    view.member = member;
    view.mark = member.mark;
    // What is wrong comes first into view.
    view.feature = member.features.findIndex((feature) => feature.state >= 2 && member.findings.some((f) => f.line && f.line === feature.line));
    showMember();
    showRows();
    keepHash();
  }

  function bringIntoSight(index) {
    const position = view.rows.findIndex((row) => row.index === index), list = el("list"), top = position * ROW;
    if (position < 0) return;
    if (top < list.scrollTop) list.scrollTop = top;
    else if (top + 3 * ROW > list.scrollTop + list.clientHeight) list.scrollTop = top + 3 * ROW - list.clientHeight;
  }

  function stepMember(step) {
    const position = view.rows.findIndex((row) => view.member && row.index === view.member.index);
    const next = view.rows[Math.min(Math.max(position + step, 0), view.rows.length - 1)];
    if (!next) return;
    bringIntoSight(next.index);
    chooseMember(next.index);
  }

  function jumpTo(mark) {
    const row = all.find((candidate) => candidate.mark === mark);
    if (!row) return;
    if (!view.rows.includes(row)) setFilter("", "all");
    bringIntoSight(row.index);
    chooseMember(row.index);
  }

  function setFilter(query, state) {
    view.query = query;
    view.state = state;
    el("filter").value = query;
    showStates();
    applyFilter();
  }

  // ---- links: filter, order and member stand in the address --------------------------------------------------

  function keepHash() {
    const parts = [["q", view.query], ["s", view.state === "all" ? "" : view.state], ["o", view.key && (view.isDown ? "-" : "") + view.key], ["m", view.mark]];
    const hash = parts.filter(([, value]) => value).map(([key, value]) => `${key}=${encodeURIComponent(value)}`).join("&");
    history.replaceState(null, "", hash ? "#" + hash : location.pathname + location.search);
  }

  function readHash() {
    const part = (key) => {
      const found = new RegExp(`(?:^#|&)${key}=([^&]*)`).exec(location.hash);
      try { return found ? decodeURIComponent(found[1]) : ""; } catch { return ""; }
    };
    const [query, state, order, mark] = ["q", "s", "o", "m"].map(part);
    view.key = COLUMNS.some((column) => column.key === order.replace(/^-/, "")) ? order.replace(/^-/, "") : "";
    view.isDown = order.startsWith("-");
    showHeadings();
    setFilter(query, FILTERS.some((filter) => filter.key === state) ? state : "all");
    const first = sorted(all, "state", false)[0];
    if (mark && all.some((row) => row.mark === mark)) jumpTo(mark);
    else if (first) chooseMember(first.index);
  }

  // ---- paper -------------------------------------------------------------------------------------------------

  function printedMember(row) {
    const member = memberAt(row.index);
    return `<div class="print-member">${headHtml(member)}${member.faces.length ? Drawing.svgOf(member, { ...PAPER, id: `p${row.index}` }) : ""}${featuresHtml(member)}</div>`;
  }

  // Members with findings and changed ones, the worst first, and the one that is chosen.
  function printedMembers() {
    const told = sorted(all.filter((row) => row.findings > 0 || row.change), "state", false);
    const chosen = view.member && !told.includes(all[view.member.index]) ? [all[view.member.index]] : [];
    const left = told.length - MOST_PRINTED_DRAWINGS;
    return [...told.slice(0, MOST_PRINTED_DRAWINGS), ...chosen].map(printedMember).join("") +
      (left > 0 ? `<p>${left} more members with findings or changes are not printed.</p>` : "");
  }

  function preparePrint() {
    const members = printedMembers();
    el("print-members").innerHTML = members && `<h2>Member by member</h2>${keyHtml({ earlier: [1] })}${members}`;
    writeRows(0, Math.min(view.rows.length, MOST_PRINTED_ROWS));
    el("above").innerHTML = "";
    printBars();
    const left = view.rows.length - MOST_PRINTED_ROWS;
    el("below").innerHTML = left > 0 ? `<tr><td colspan="${COLUMNS.length}">${left} more members are not printed; a filter prints others.</td></tr>` : "";
  }

  // The cutting list has all bars.
  function printBars() {
    const bars = [...document.querySelectorAll("#plans .bar")], left = bars.length - MOST_PRINTED_BARS;
    for (const bar of bars.slice(MOST_PRINTED_BARS)) bar.classList.add("unprinted");
    if (left > 0) el("print-bars").textContent = `${left} more rows of bars are not printed; the cutting list has them.`;
  }

  function finishPrint() {
    el("print-members").innerHTML = "";
    showRows();
  }

  function copyRows() {
    const lines = [COLUMNS.map((column) => column.name), ...view.rows.map((row) => COLUMNS.map((column) => (column.key === "state" ? STATES[row.state] : row[column.key])))];
    navigator.clipboard.writeText(lines.map((cells) => cells.join("\t")).join("\n"))
      .then(() => { el("count").textContent = `${view.rows.length} rows copied`; }, () => { el("count").textContent = "The browser did not let the rows be copied"; });
  }

  // ---- what a user does --------------------------------------------------------------------------------------

  const isTyping = (target) => target.matches("input, textarea, select");

  function pressed(event) {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    if (event.key === "Escape" && view.member && view.feature >= 0) return chooseFeature(view.feature);
    if (isTyping(event.target)) return;
    const inMember = el("member").contains(event.target), inList = event.target === el("list");
    const actions = {
      "/": () => el("filter").focus(),
      ArrowDown: inList && (() => stepMember(1)),
      ArrowUp: inList && (() => stepMember(-1)),
      PageDown: inList && (() => stepMember(20)),
      PageUp: inList && (() => stepMember(-20)),
      ArrowRight: (inMember || inList) && (() => stepFeature(1)),
      ArrowLeft: (inMember || inList) && (() => stepFeature(-1)),
    };
    if (!actions[event.key]) return;
    event.preventDefault();
    actions[event.key]();
  }

  function clickedMember(event) {
    const finding = event.target.closest("button[data-line]"), feature = event.target.closest("[data-feature]");
    if (finding) {
      const index = view.member.features.findIndex((f) => f.line === Number(finding.dataset.line));
      if (index !== view.feature) chooseFeature(index);
    } else if (feature) chooseFeature(Number(feature.dataset.feature));
  }

  function listen() {
    el("list").addEventListener("scroll", () => requestAnimationFrame(showRows));
    new ResizeObserver(showRows).observe(el("list"));
    new ResizeObserver(() => { if (view.member && view.width !== drawingWidth()) showDrawing(); }).observe(el("member"));
    el("filter").addEventListener("input", () => { view.query = el("filter").value; applyFilter(); });
    el("states").addEventListener("click", (event) => {
      const button = event.target.closest("button");
      if (!button) return;
      setFilter(view.query, button.dataset.state);
      el("states").querySelector(`[data-state="${view.state}"]`).focus();
    });
    el("headings").addEventListener("click", (event) => {
      const button = event.target.closest("button");
      if (!button) return;
      view.isDown = view.key === button.dataset.key && !view.isDown;
      view.key = button.dataset.key;
      showHeadings();
      applyFilter();
      el("headings").querySelector(`[data-key="${view.key}"]`).focus();
    });
    el("rows").addEventListener("click", (event) => {
      const row = event.target.closest("tr");
      if (row) chooseMember(Number(row.dataset.row));
    });
    el("member").addEventListener("click", clickedMember);
    el("copy").addEventListener("click", copyRows);
    // Of a member that is gone nothing can be shown.
    const marks = new Set(all.map((row) => row.mark));
    for (const link of document.querySelectorAll("a.jump"))
      if (!marks.has(link.dataset.mark)) link.replaceWith(link.textContent);
    document.addEventListener("click", (event) => {
      const jump = event.target.closest("a.jump, #plans g[data-mark]");
      if (!jump) return;
      event.preventDefault();
      jumpTo(jump.dataset.mark);
      el("members").scrollIntoView();
      el("list").focus({ preventScroll: true });
    });
    document.addEventListener("keydown", pressed);
    addEventListener("beforeprint", preparePrint);
    addEventListener("afterprint", finishPrint);
    addEventListener("hashchange", readHash);
  }

  for (const section of document.querySelectorAll(".needs-script")) section.hidden = false;
  el("contents").innerHTML = [...document.querySelectorAll("main h2")].map((heading, i) => {
    const section = heading.closest("section");
    section.id = section.id || `section${i}`;
    return `<a href="#${section.id}">${escaped(heading.textContent.split(/:| against /)[0])}</a>`;
  }).join("");
  el("contents").addEventListener("click", (event) => {
    const link = event.target.closest("a");
    if (!link) return;
    event.preventDefault();
    el(link.getAttribute("href").slice(1)).scrollIntoView();
  });
  listen();
  readHash();
})();
