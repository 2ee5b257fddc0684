#include "examples/tour/report_style.h"

namespace tour {

std::string_view report_style() {
  return R"css(
:root {
  --paper: #ffffff; --panel: #f5f6f8; --edge: #dfe3e8; --ink: #1d232b; --muted: #56606c; --link: #0b5c9e;
  --keyword: #8a2f6e; --text: #0b6148; --number: #8f4300; --comment: #5b6672; --bad: #a32020;
}
@media (prefers-color-scheme: dark) {
  :root {
    --paper: #15181d; --panel: #1d2229; --edge: #2f3741; --ink: #e8ebef; --muted: #a4aebb; --link: #7cc0f5;
    --keyword: #e8a5d3; --text: #7fd1ae; --number: #f2b37e; --comment: #95a0ae; --bad: #ff9d9d;
  }
}
* { box-sizing: border-box; }
html { scroll-behavior: smooth; -webkit-text-size-adjust: 100%; }
body {
  margin: 0 auto; max-width: 1320px; padding: 0 32px 96px; background: var(--paper); color: var(--ink);
  font: 16px/1.6 system-ui, "Segoe UI", "DejaVu Sans", sans-serif;
  display: grid; grid-template-columns: 180px minmax(0, 1fr); column-gap: 48px;
}
header { grid-column: 2; padding: 56px 0 8px; }
main { grid-column: 2; }
h1 { font-size: 2.1rem; line-height: 1.2; margin: 0 0 .4em; letter-spacing: -.01em; }
h2 { font-size: 1.5rem; line-height: 1.25; margin: 0 0 .3em; letter-spacing: -.005em; }
h3 { font-size: 1.08rem; margin: 2.2em 0 .5em; }
p, dl { max-width: 44em; margin: 0 0 1em; }
.lead { font-size: 1.12rem; color: var(--muted); }
.facts { font-size: .82rem; color: var(--muted); margin-bottom: 1.4em; }
.error { color: var(--bad); font-weight: 600; }
section { padding: 40px 0 16px; border-top: 1px solid var(--edge); margin-top: 32px; scroll-margin-top: 8px; }
a { color: var(--link); }
nav { grid-column: 1; grid-row: 1 / span 2; position: sticky; top: 0; align-self: start; padding-top: 64px;
  font-size: .9rem; line-height: 1.4; max-height: 100vh; overflow-y: auto; }
nav p { font-size: .75rem; letter-spacing: .08em; text-transform: uppercase; color: var(--muted); margin: 0 0 .8em; }
nav ol { list-style: none; margin: 0; padding: 0; }
nav li { margin: 0 0 .7em; }
nav a { color: var(--muted); text-decoration: none; }
nav a:hover, nav a:focus { color: var(--link); text-decoration: underline; }
code, pre { font-family: ui-monospace, "SF Mono", "DejaVu Sans Mono", Menlo, Consolas, monospace; }
code { font-size: .88em; background: var(--panel); border-radius: 4px; padding: .1em .3em; overflow-wrap: anywhere; }
pre { margin: 0; padding: 16px 18px; overflow-x: auto; background: var(--panel); border: 1px solid var(--edge);
  border-radius: 8px; font-size: 12px; line-height: 1.6; }
pre code { font-size: inherit; background: none; padding: 0; overflow-wrap: normal; }
.k-comment { color: var(--comment); } .k-text { color: var(--text); } .k-number { color: var(--number); }
.k-keyword { color: var(--keyword); }
.step { display: grid; grid-template-columns: minmax(0, 1fr) minmax(0, 1fr); gap: 28px; align-items: start;
  margin: 1.4em 0 2.2em; }
.beside > * + * { margin-top: 24px; }
figure { margin: 0; max-width: 620px; }
figcaption { font-size: .86rem; line-height: 1.5; color: var(--muted); margin-top: 6px; }
.scroll { overflow-x: auto; }
table { border-collapse: collapse; font-size: .86rem; line-height: 1.4; font-variant-numeric: tabular-nums; }
th, td { padding: 5px 0 5px 22px; text-align: right; border-bottom: 1px solid var(--edge); white-space: nowrap; }
thead th { color: var(--muted); font-weight: 500; }
tbody th { font-weight: 400; }
th:first-child { padding-left: 0; text-align: left; }
dt { margin-top: 1.2em; }
dd { margin: .2em 0 0; font-size: .92rem; overflow-wrap: anywhere; }
@media (max-width: 1080px) {
  body { grid-template-columns: minmax(0, 1fr); padding: 0 28px 64px; }
  header, main, nav { grid-column: 1; grid-row: auto; }
  nav { order: -1; padding: 10px 28px; margin: 0 -28px; background: var(--paper); border-bottom: 1px solid var(--edge);
    overflow-x: auto; z-index: 1; }
  nav p { display: none; }
  nav ol { display: flex; gap: 22px; white-space: nowrap; }
  nav li { margin: 0; }
  section { scroll-margin-top: 48px; }
  header { padding-top: 32px; }
}
@media (max-width: 820px) {
  .step { grid-template-columns: minmax(0, 1fr); }
}
@media (max-width: 640px) {
  body { padding: 0 18px 48px; }
  nav { padding: 10px 18px; margin: 0 -18px; }
  h1 { font-size: 1.7rem; }
  pre { font-size: 11.5px; padding: 12px 14px; }
}
@media print { nav { display: none; } body { display: block; } .step, figure { break-inside: avoid; } }
)css";
}

}  // namespace tour
