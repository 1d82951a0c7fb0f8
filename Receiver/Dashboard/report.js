// One report: everything it says, the most telling first.

import {get} from './api.js';
import {clippedText} from './clipped.js';
import {el, fill, quoted} from './dom.js';
import {requestTable, showEvent, tapTable} from './eventTables.js';
import {factGroups} from './facts.js';
import {fileList, screenshotFigure} from './files.js';
import {parseTime} from './format.js';
import {jsonView, scrollable} from './jsonView.js';
import {permissionName, permissionState} from './names.js';
import {noticesOf} from './notices.js';
import {copyButton} from './notify.js';
import {markOpened} from './opened.js';
import {buildBar} from './reportBar.js';
import {mostHeading, reportHead} from './reportHead.js';
import {asArray, asObject, asText, firstLine} from './text.js';
import {buildTimeline} from './timeline.js';
import {recordsOf} from './wire.js';

const mostProse = 1200; // characters: with more, the black box would be screens away
const mostQuickFacts = 12; // lines
const patience = 200; // milliseconds without a word about loading

export function showReport({place, route, signal}) {
    let leaving = new AbortController();
    signal.addEventListener('abort', () => leaving.abort());
    update(route);
    return {update};

    function update(next) {
        leaving.abort();
        leaving = new AbortController();
        load(next, leaving.signal).catch((error) => error.name === 'AbortError' || showMissing(error, next));
    }

    async function load({id, parameters}, ofThis) {
        const bar = buildBar(Number(id) || null, parameters);
        document.title = `Report ${id} · Wexel`;
        place.setAttribute('aria-busy', 'true');
        const slow = setTimeout(() => fill(place, bar.element, el('p.loading', {role: 'status'}, 'Loading…')), patience);
        ofThis.addEventListener('abort', () => clearTimeout(slow));
        const answer = await get(`reports/${encodeURIComponent(id)}`, ofThis).finally(() => clearTimeout(slow));
        place.removeAttribute('aria-busy');
        markOpened(answer.id);
        scrollTo(0, 0);
        const figure = show(place, bar, answer, ofThis);
        place.focus({preventScroll: true});
        bar.ready(answer, figure, ofThis);
    }

    function showMissing(error, {parameters}) {
        place.removeAttribute('aria-busy');
        const bar = buildBar(null, parameters);
        fill(place, bar.element, el('.empty', el('h1', error.status === 404 ? 'This report is gone' : 'This report can’t be shown'),
            el('p', error.status === 404 ? 'It was deleted, or never existed.' : error.message)));
    }
}

/// Returns the screenshot's figure, or null.
function show(place, bar, answer, signal) {
    const report = asObject(answer.report);
    const records = recordsOf(report);
    const end = parseTime(report.issue_reported_time) ?? answer.received;
    const timeline = buildTimeline(records, end, signal);
    const figure = screenshotFigure(answer.screenshot, report);
    const layout = el('.report', {dataset: {id: answer.id}}, figure && el('.report-shot', figure),
        el('.report-main',
            reportHead(answer, report),
            notices(report, records, end, timeline),
            description(report),
            timeline?.element,
            section('Quick facts', quickFacts(asText(report.quick_facts).trim())),
            section('Attachments', answer.files.length > 0 && fileList(answer.files), 'attachments'),
            section('Requests', records.requests.length > 0 && requestTable(records.requests, end, timeline?.point), 'requests'),
            section('Taps', records.taps.length > 0 && tapTable(records.taps, end, timeline?.point), 'taps'),
            section('Facts', facts(answer, report)),
            rawJson(report)));
    const arrange = () => layout.classList.toggle('is-wide', figure?.classList.contains('is-wide') ?? false);
    arrange();
    layout.addEventListener('measured', arrange);
    fill(place, bar.element, layout);
    timeline?.draw();
    return figure;
}

function section(name, content, id = null) {
    return content ? el('section.part', {id}, el('h2', name), content) : null;
}

function notices(report, records, end, timeline) {
    const all = noticesOf(report, records, end);
    return all.length ? el('ul.notices', all.map((each) => el('li', notice(each, timeline)))) : null;
}

/// Leads to what it speaks of.
function notice({text, level, time, table}, timeline) {
    if (time === undefined || !timeline)
        return el('span', {className: `notice is-${level}`}, quoted(text));
    return el('button', {type: 'button', className: `notice is-${level}`, onpointerenter: () => timeline.point(time),
        onclick: () => table ? showEvent(table, time) : timeline.show(time)}, quoted(text));
}

/// What the heading does not say already.
function description(report) {
    const text = asText(report.description).trim();
    const line = firstLine(text);
    const rest = line.length > mostHeading ? text : text.slice(line.length).trim();
    return rest ? clippedText('p.prose', rest, mostProse) : null;
}

function quickFacts(text) {
    return text && clippedText('p.prose.mono', text, mostProse, mostQuickFacts);
}

function facts(answer, report) {
    const groups = factGroups({...answer, report}).map(([name, rows]) => el('section.fact-group', el('h3', name),
        el('dl', rows.map(([key, text]) => el('.fact', el('dt', quoted(key)), el('dd', quoted(text)))))));
    const allowed = asArray(report.permissions).map(asObject).slice(0, 50);
    if (allowed.length)
        groups.push(el('section.fact-group', el('h3', 'Permissions'), el('dl', allowed.map(({name, state}) =>
            el('.fact', el('dt', quoted(permissionName(name))), el('dd', quoted(permissionState(state))))))));
    return el('.facts', groups);
}

function rawJson(report) {
    const pretty = () => JSON.stringify(report, null, 2);
    const content = el('.raw-content');
    const details = el('details', {ontoggle: ({target}) => target.open && !content.hasChildNodes()
        && fill(content, scrollable(jsonView(pretty()), 'JSON'))}, el('summary', el('h2', 'JSON')), content);
    return el('.part.raw', details, copyButton(pretty));
}
