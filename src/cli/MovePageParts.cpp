#include "cli/MovePageParts.h"

namespace norvo::cli {

const std::string_view kPageStyle = R"(
:root {
  color-scheme: light dark;
  --paper: #faf7f0; --card: #fffdf8; --ink: #26221c; --soft: #6d6558; --line: #e3dbcc;
  --good: #2f6f5e; --there: #7fa99b; --plan: #b79a55; --bad: #b4452c; --none: #cfc6b4; --plan-ink: #856415;
  --bad-paper: #fbeee8; --focus: #2f6f5e;
}
@media (prefers-color-scheme: dark) {
  :root {
    --paper: #171614; --card: #1f1d1a; --ink: #ece6da; --soft: #a39a8a; --line: #35312b;
    --good: #6fbfa6; --there: #3f7566; --plan: #c9ac66; --bad: #ee8a6d; --none: #4b453c; --plan-ink: #d8bd80;
    --bad-paper: #2d201b; --focus: #6fbfa6;
  }
}
* { box-sizing: border-box; }
body {
  margin: 0; background: var(--paper); color: var(--ink);
  font: 16px/1.55 system-ui, -apple-system, "Segoe UI", Roboto, "Noto Sans", "DejaVu Sans", sans-serif;
  font-variant-numeric: tabular-nums; overflow-wrap: anywhere;
}
.page { max-width: 66rem; margin: 0 auto; padding: 3rem 1.5rem 5rem; }
h1, h2, .figure b {
  font-family: "Iowan Old Style", "Palatino Linotype", Palatino, Georgia, "DejaVu Serif", serif;
  font-weight: 600; line-height: 1.15; letter-spacing: -.01em;
}
h1 { font-size: clamp(2rem, 5vw, 3rem); margin: 0 0 .6rem; text-wrap: balance; }
h2 { font-size: 1.45rem; margin: 3rem 0 1rem; }
header { display: flex; gap: 2rem; align-items: center; justify-content: space-between; }
header p { margin: .15rem 0; color: var(--soft); }
.disc {
  flex: none; width: 8.5rem; height: 8.5rem; border-radius: 50%;
  background:
    radial-gradient(circle, var(--paper) 0 4%, var(--good) 4.5% 30%, transparent 30.5%),
    repeating-radial-gradient(circle, #2b2824 0 2.5px, #3a3631 3px 4px);
  box-shadow: 0 1px 2px #0003, 0 10px 30px -12px #0006;
}
.some .disc {
  background:
    radial-gradient(circle, var(--paper) 0 4%, var(--plan) 4.5% 30%, transparent 30.5%),
    repeating-radial-gradient(circle, #2b2824 0 2.5px, #3a3631 3px 4px);
}
.figures { display: flex; flex-wrap: wrap; gap: 1rem 3rem; margin: 2.2rem 0 1.6rem; }
.figure b { display: block; font-size: 2.1rem; }
.figure { color: var(--soft); }
.figure b { color: var(--ink); }
.bar {
  display: flex; gap: 2px; height: 1.1rem; border-radius: .55rem; overflow: hidden;
  background: var(--line);
}
.bar i { min-width: 4px; }
.legend { display: flex; flex-wrap: wrap; gap: .3rem 1.6rem; margin: .8rem 0 0; padding: 0; list-style: none; }
.legend i { display: inline-block; width: .75rem; height: .75rem; border-radius: .2rem; margin-right: .5rem; }
.brought { background: var(--good); } .there { background: var(--there); }
.planned { background: var(--plan); } .left { background: var(--bad); }
.unlisted { background: var(--none); }
.facts { margin: 1.4rem 0 0; padding: 0; list-style: none; color: var(--soft); }
.facts li { margin: .2rem 0; }
.trouble {
  background: var(--bad-paper); border-left: 4px solid var(--bad); border-radius: .3rem;
  padding: .9rem 1.3rem; margin: 2rem 0 0;
}
.trouble h2 { margin: 0 0 .4rem; font-size: 1.2rem; color: var(--bad); }
.trouble ul, .notes { margin: 0; padding-left: 1.2rem; }
.tools {
  position: sticky; top: 0; z-index: 1; display: flex; flex-wrap: wrap; gap: .6rem 1rem;
  align-items: center; padding: .8rem 0; background: var(--paper); border-bottom: 1px solid var(--line);
}
.tools[hidden] { display: none; }
.tools input[type=search] {
  flex: 1 1 16rem; font: inherit; color: inherit; background: var(--card);
  border: 1px solid var(--line); border-radius: 2rem; padding: .5rem 1.1rem;
}
.tools fieldset { border: 0; margin: 0; padding: 0; display: flex; gap: .3rem; }
.tools label { cursor: pointer; }
.tools label span { display: block; padding: .4rem .95rem; border-radius: 2rem; border: 1px solid var(--line); }
.tools label input { position: absolute; opacity: 0; }
.tools label input:checked + span { background: var(--ink); color: var(--paper); border-color: var(--ink); }
.tools output { color: var(--soft); flex: 1 0 100%; font-size: .875rem; }
:focus-visible, .tools label input:focus-visible + span { outline: 2px solid var(--focus); outline-offset: 2px; }
.list {
  background: var(--card); border: 1px solid var(--line); border-radius: .6rem; margin: .7rem 0;
  content-visibility: auto; contain-intrinsic-size: auto 3.4rem;
}
.list > summary {
  display: flex; flex-wrap: wrap; gap: .1rem 1rem; align-items: baseline; padding: .8rem 1.2rem;
  cursor: pointer; list-style: none;
}
.list > summary::-webkit-details-marker { display: none; }
.list > summary::before { content: "\25B8"; color: var(--soft); transition: transform .15s; }
.list[open] > summary::before { transform: rotate(90deg); }
.list > summary strong { font-weight: 600; }
.list > summary small { color: var(--soft); flex: 1 1 10rem; }
.list > summary em { font-style: normal; color: var(--good); margin-left: auto; }
.list.idle > summary em { color: var(--soft); }
.list.bad > summary em { color: var(--bad); }
.inside { padding: 0 1.2rem 1rem; border-top: 1px solid var(--line); }
.notes { margin: .8rem 0; }
.notes .p { color: var(--bad); }
.notes .d { color: var(--soft); }
table { width: 100%; border-collapse: collapse; font-size: .9rem; margin-top: .4rem; }
th { text-align: left; font-weight: 500; color: var(--soft); font-size: .8rem; padding: .5rem .8rem .3rem 0; }
td { vertical-align: top; padding: .5rem .8rem .5rem 0; border-top: 1px solid var(--line); }
td:first-child { width: 2.6rem; color: var(--soft); }
td:nth-child(2) { width: 42%; } td:last-child { width: 17%; padding-right: 0; }
td b { font-weight: 600; } td small { display: block; color: var(--soft); }
tr.p td:last-child { color: var(--bad); }
tr.c td:last-child { color: var(--plan-ink); }
.where { margin: .9rem 0 0; font-size: .85rem; color: var(--soft); }
.where summary { cursor: pointer; }
.where ul { margin: .3rem 0 0; padding-left: 1.2rem; }
[hidden] { display: none; }
footer { margin-top: 4rem; color: var(--soft); font-size: .85rem; }
@media (max-width: 44rem) {
  .disc { display: none; }
  thead { display: none; }
  tr { display: grid; grid-template-columns: 2.2rem 1fr; padding: .5rem 0; border-top: 1px solid var(--line); }
  tr[hidden] { display: none; }
  td { border: 0; padding: .1rem 0; width: auto !important; } td:nth-child(n + 3) { grid-column: 2; }
}
@media print {
  :root { color-scheme: light; --paper: #fff; --card: #fff; --ink: #000; --soft: #555; --line: #ccc;
    --good: #1f5a4b; --bad: #9a2f17; --bad-paper: #fff; }
  body { font-size: 10pt; } .page { max-width: none; padding: 0; }
  .tools, .disc { display: none; }
  .list { border: 0; border-top: 1px solid var(--line); border-radius: 0; content-visibility: visible; }
  .list > summary::before { content: none; }
  details::details-content { content-visibility: visible; block-size: auto; }
  tr, .list > summary { break-inside: avoid; } .list > summary { break-after: avoid; }
  .bar, .legend i { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
)";

const std::string_view kPageScript = R"(
"use strict";
(function () {
  const tools = document.querySelector(".tools");
  const search = tools.querySelector("input[type=search]");
  const shown = tools.querySelector("output");
  const fold = text => text.normalize("NFC").toLowerCase();
  // Texts are taken once: a search reads no element again.
  const lists = Array.from(document.querySelectorAll(".list"), list => ({
    element: list,
    wasOpen: list.open,
    isBad: list.classList.contains("bad"),
    isChanged: list.classList.contains("changed"),
    text: fold(list.querySelector("summary").textContent),
    rows: Array.from(list.querySelectorAll("tbody tr"), row => ({
      element: row,
      text: fold(row.textContent),
      isBad: row.classList.contains("p"),
      isChanged: row.classList.contains("c")
    }))
  }));
  const songs = lists.reduce((sum, list) => sum + list.rows.length, 0);
  // More than this many are not unfolded by themselves.
  const most = 300;
  let wasFiltered = false;

  function passes(thing, filter) {
    return filter === "bad" ? thing.isBad : filter === "changed" ? thing.isChanged : true;
  }

  function apply() {
    const words = fold(search.value).split(/\s+/).filter(word => word);
    const filter = tools.querySelector("input[name=filter]:checked").value;
    const isFiltered = words.length > 0 || filter !== "all";
    let rowsShown = 0;
    let listsShown = 0;
    const opened = [];
    for (const list of lists) {
      const named = words.every(word => list.text.includes(word));
      let here = 0;
      for (const row of list.rows) {
        const fits = passes(row, filter) &&
          (named || words.every(word => row.text.includes(word) || list.text.includes(word)));
        if (row.element.hidden === fits) row.element.hidden = !fits;
        if (fits) ++here;
      }
      const fits = here > 0 || (named && passes(list, filter));
      if (list.element.hidden === fits) list.element.hidden = !fits;
      rowsShown += here;
      if (fits) ++listsShown;
      if (fits && here > 0) opened.push(list);
    }
    if (isFiltered) {
      if (!wasFiltered) for (const list of lists) list.wasOpen = list.element.open;
      if (rowsShown <= most) for (const list of opened) list.element.open = true;
    } else if (wasFiltered) {
      for (const list of lists) list.element.open = list.wasOpen;
    }
    wasFiltered = isFiltered;
    shown.textContent = isFiltered
      ? rowsShown + " of " + songs + " listed songs, in " + listsShown + " of " + lists.length +
        " lists"
      : songs + " listed songs in " + lists.length + " lists";
  }

  let waiting = 0;
  search.addEventListener("input", () => {
    clearTimeout(waiting);
    waiting = setTimeout(apply, 120);
  });
  tools.addEventListener("change", apply);
  let unfolded = [];
  window.addEventListener("beforeprint", () => {
    unfolded = lists.filter(list => !list.element.open && !list.element.hidden);
    for (const list of unfolded) list.element.open = true;
  });
  window.addEventListener("afterprint", () => {
    for (const list of unfolded) list.element.open = false;
  });
  tools.hidden = false;
  apply();
})();
)";

}  // namespace norvo::cli
