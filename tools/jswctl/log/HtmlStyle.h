#pragma once

namespace jsw::ctl::log {

/// The page's style: colours as variables, once for light and once for dark.
inline constexpr char kHtmlStyle[] = R"(
:root { color-scheme: light dark;
  --page: #ffffff; --ink: #1c2430; --soft: #5b6675; --rule: #d8dee6; --panel: #f4f6f9;
  --view: #4c8dd6; --catalog: #3fa37a; --rules: #a06cc9; --older: #c98a3a; --update: #4aa3b3;
  --own: #c3ccd8; --label: #10161f; --stops: #c62828; --hinders: #b26a00; --note: #5b6675; }
@media (prefers-color-scheme: dark) { :root {
  --page: #14181f; --ink: #e4e9f0; --soft: #9aa6b5; --rule: #323b48; --panel: #1c222c;
  --view: #5b9be0; --catalog: #4fb98c; --rules: #b585dc; --older: #dba254; --update: #5cb8c9;
  --own: #7f8b9c; --label: #0b0f15; --stops: #ff7b72; --hinders: #f0b04a; --note: #9aa6b5; } }
body { margin: 0 auto; max-width: 1160px; padding: 1.5rem 1.25rem 3rem; background: var(--page);
  color: var(--ink); font: 15px/1.45 "Segoe UI", "DejaVu Sans", sans-serif; }
h1 { font-size: 1.5rem; margin: 0 0 .25rem; }
h2 { font-size: 1.2rem; margin: 2rem 0 .5rem; border-bottom: 1px solid var(--rule); }
h3 { font-size: 1.05rem; margin: 1.75rem 0 .25rem; }
code, .mono { font-family: Consolas, "DejaVu Sans Mono", monospace; font-size: .88em;
  overflow-wrap: anywhere; }
.soft { color: var(--soft); margin: .1rem 0; }
ul.facts { margin: .5rem 0; padding-left: 1.2rem; }
table { border-collapse: collapse; width: 100%; }
th, td { text-align: left; vertical-align: top; padding: .3rem .6rem .3rem 0;
  border-bottom: 1px solid var(--rule); }
th { color: var(--soft); font-weight: 600; }
td.n, th.n { text-align: right; white-space: nowrap; font-variant-numeric: tabular-nums; }
.impact { font-weight: 600; white-space: nowrap; }
.stops { color: var(--stops); } .hinders { color: var(--hinders); } .note { color: var(--note); }
.timeline { display: block; width: 100%; height: auto; margin: .5rem 0; }
.timeline text { font: 10px "Segoe UI", "DejaVu Sans", sans-serif; fill: var(--ink); }
.timeline .axis { fill: var(--soft); } .timeline .middle { text-anchor: middle; }
.timeline .thread { font-weight: 600; font-size: 11px; } .timeline .label { fill: var(--label); }
.timeline .label { pointer-events: none; }
.timeline .lane { fill: var(--panel); } .timeline .grid { stroke: var(--rule); }
.timeline .fold { fill: var(--rule); fill-opacity: .55; }
.bar.view { fill: var(--view); } .bar.catalog { fill: var(--catalog); }
.bar.rules { fill: var(--rules); } .bar.older { fill: var(--older); }
.bar.update { fill: var(--update); } .bar.own { fill: var(--own); }
.bar.open { stroke: var(--stops); stroke-dasharray: 3 2; }
path.mark.stops { fill: var(--stops); } path.mark.hinders { fill: var(--hinders); }
path.mark.note { fill: var(--note); }
.legend { color: var(--soft); font-size: .88rem; }
.key { display: inline-block; width: .9em; height: .9em; margin: 0 .3em 0 .8em;
  vertical-align: -.1em; }
.key.view { background: var(--view); } .key.catalog { background: var(--catalog); }
.key.rules { background: var(--rules); } .key.older { background: var(--older); }
.key.update { background: var(--update); } .key.own { background: var(--own); }
.key.fold { background: var(--rule); } span.mark { margin: 0 .3em 0 .8em; }
details { margin: .4rem 0; } summary { cursor: pointer; color: var(--soft); }
ol.story { list-style: none; margin: .3rem 0; padding: 0; }
ol.story li { display: grid; grid-template-columns: 5.5rem 1fr; overflow-wrap: anywhere; }
ol.story time { color: var(--soft); font-variant-numeric: tabular-nums; }
@media print { details > * { display: block; } }
)";

}  // namespace jsw::ctl::log
