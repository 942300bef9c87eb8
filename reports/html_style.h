// The style of the pages.
#pragma once

namespace velkor {
namespace Reports {

/// Readable in light and dark windows, on phones, and printed in black on white.
constexpr char htmlStyle[] = R"(
:root { color-scheme: light dark; --text: #1b1f24; --back: #ffffff; --soft: #57606a; --line: #d0d7de; --band: #f3f5f8;
  --link: #0b57a4; --warn: #fff4ce; --warn-line: #b38600; }
@media (prefers-color-scheme: dark) {
  :root { --text: #e4e7eb; --back: #15181c; --soft: #9aa4af; --line: #3a424b; --band: #1f242a; --link: #7db7f5;
    --warn: #3a3110; --warn-line: #d0a215; } }
* { box-sizing: border-box; }
body { margin: 0 auto; max-width: 84rem; padding: 1rem 1.5rem 4rem; color: var(--text); background: var(--back);
  font: 15px/1.45 system-ui, "Segoe UI", Roboto, "DejaVu Sans", sans-serif; }
h1 { font-size: 1.7rem; margin: 0.6rem 0 1rem; }
h2 { font-size: 1.35rem; margin: 2.2rem 0 0.6rem; padding-bottom: 0.2rem; border-bottom: 2px solid var(--line); }
h3 { font-size: 1.1rem; margin: 1.6rem 0 0.4rem; }
h4, h5 { font-size: 0.95rem; margin: 1rem 0 0.3rem; overflow-wrap: anywhere; }
h5 { color: var(--soft); }
a { color: var(--link); text-decoration: none; }
a:hover, a:focus { text-decoration: underline; }
nav ul { columns: 17rem; column-gap: 2rem; margin: 0.3rem 0 0.8rem; padding: 0; list-style: none; }
nav li { break-inside: avoid; padding: 0.08rem 0; }
nav .count { color: var(--soft); font-size: 0.85em; }
nav h3 { margin: 0.8rem 0 0; font-size: 0.95rem; color: var(--soft); }
table { border-collapse: collapse; margin: 0.2rem 0 0.8rem; max-width: 100%; }
th, td { border: 1px solid var(--line); padding: 0.18rem 0.55rem; text-align: left; vertical-align: top;
  overflow-wrap: anywhere; }
td { white-space: pre-wrap; font-family: ui-monospace, "Cascadia Mono", Consolas, "DejaVu Sans Mono", monospace;
  font-size: 0.88em; }
th { background: var(--band); font-weight: 600; }
tbody th { min-width: 9rem; }
td.empty { color: var(--soft); font-style: italic; }
ul.values { margin: 0; padding: 0; list-style: none; }
ul.many { columns: 17rem; column-gap: 1.5rem; }
.notes { border-left: 4px solid var(--warn-line); background: var(--warn); margin: 1rem 0; padding: 0.5rem 0.9rem; }
.notes ul { margin: 0.2rem 0; padding-left: 1.2rem; }
.item { margin-left: 0; padding-left: 0.8rem; border-left: 3px solid var(--line); }
pre { border: 1px solid var(--line); background: var(--band); padding: 0.5rem 0.7rem; white-space: pre-wrap;
  overflow-wrap: anywhere; font-size: 0.88em; }
.back { font-size: 0.8rem; font-weight: 400; margin-left: 0.6rem; }
@media print {
  :root { color-scheme: light; --text: #000; --back: #fff; --soft: #333; --line: #999; --band: #fff; --link: #000;
    --warn: #fff; --warn-line: #000; }
  @page { margin: 15mm; }
  body { max-width: none; padding: 0; font-size: 9pt; line-height: 1.25; }
  h3 { margin: 0.9rem 0 0.3rem; }
  th, td { padding: 0.06rem 0.4rem; }
  nav { break-after: page; }
  .back { display: none; }
  h2 { break-before: page; }
  h2.first { break-before: auto; }
  h2, h3, h4, h5 { break-after: avoid; }
  tr, li { break-inside: avoid; }
  thead { display: table-header-group; }
}
)";

} // namespace Reports
} // namespace velkor
