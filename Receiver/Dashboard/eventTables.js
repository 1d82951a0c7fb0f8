// Taps and requests as tables, the last one first; a request's headers and bodies open below it.

import {clippedRows, clippedText} from './clipped.js';
import {el, fill, quoted, tableHead} from './dom.js';
import {clock, duration, integer} from './format.js';
import {icon} from './icons.js';
import {jsonView, prettyJson, scrollable} from './jsonView.js';
import {copyButton} from './notify.js';
import {asText, visible, webLink} from './text.js';

const mostRows = 200;
const mostBody = 20000; // characters

/// `point(time)` is told which moment the reader looks at.
export function tapTable(taps, end, point) {
    const body = el('tbody');
    const hasDetails = taps.some(({property}) => property);
    const table = el('table.events.taps', tableHead('Before.number', 'Element', 'View', ...hasDetails ? ['Detail'] : []), body);
    clippedRows(body, taps.toReversed(), (tap) => el('tr', {dataset: {time: tap.time}, onpointerenter: () => point(tap.time)},
        timeCell(tap.time, end), el('td', quoted(visible(tap.className, 120) || '–')), el('td', quoted(visible(tap.view, 120))),
        hasDetails && el('td', quoted(visible(tap.property, 200)))), mostRows);
    return el('.table-scroll', table);
}

export function requestTable(requests, end, point) {
    const body = el('tbody');
    const head = tableHead('Before.number', 'Method', 'Status', 'Address', 'Took.number', '');
    head.querySelector('th:last-child').append(el('span.off-screen', 'Actions'));
    const table = el('table.events.requests', head, body);
    clippedRows(body, requests.toReversed(), (request) => requestRows(request, end, point), mostRows);
    return el('.table-scroll', table);
}

/// Leads to the row of a time in the table ("taps" or "requests"), also one that is not shown yet, and opens it.
export function showEvent(table, time) {
    const part = document.getElementById(table);
    const find = () => part?.querySelector(`tr[data-time="${time}"]`);
    if (!find())
        part?.querySelector('.show-rest')?.click();
    const row = find();
    if (!row)
        return;
    const toggle = row.querySelector('[aria-expanded]');
    if (toggle?.getAttribute('aria-expanded') === 'false')
        toggle.click();
    row.tabIndex = -1;
    (toggle ?? row).focus({preventScroll: true});
    row.scrollIntoView({block: 'center'});
    row.classList.add('is-chosen');
    row.addEventListener('animationend', () => row.classList.remove('is-chosen'), {once: true});
}

function timeCell(time, end) {
    const before = end - time;
    return el('td.when.number', {title: clock(time)}, before < 0 ? `${duration(-before)} after` : duration(before));
}

function requestRows(request, end, point) {
    const detail = el('tr.detail', {hidden: true}, el('td', {colspan: 6}));
    const toggle = el('button.quiet.square', {type: 'button', 'aria-expanded': 'false', 'aria-label': visible(`Headers and bodies: ${request.method} ${request.url}`, 160)}, icon('next'));
    const row = el('tr.request', {dataset: {time: request.time}, className: `request ${outcome(request)}`,
        onpointerenter: () => point(request.time), onclick: switchDetail},
    timeCell(request.time, end), el('td.method', quoted(visible(request.method, 20))),
    el('td', el('span.status', quoted(visible(request.status, 20) || 'none'))),
    el('td.address', {title: visible(request.url, 2000)}, quoted(visible(request.url, 600))),
    el('td.took.number', request.duration === null ? '' : duration(request.duration)), el('td', toggle));
    function switchDetail({detail: clicks}) {
        const selection = getSelection();
        if (clicks > 0 && !selection.isCollapsed && selection.containsNode(row, true))
            return; // it was a selection, not a click
        if (!detail.firstChild.hasChildNodes())
            fill(detail.firstChild, requestDetail(request));
        detail.hidden = !detail.hidden;
        toggle.setAttribute('aria-expanded', String(!detail.hidden));
    }
    return [row, detail];
}

function outcome({failed, unanswered}) {
    return failed ? 'is-failed' : unanswered ? 'is-unanswered' : '';
}

function requestDetail(request) {
    const link = webLink(request.url);
    return [
        el('.request-address', el('code', quoted(visible(request.url, 4000))), copyButton(() => request.url),
            link && el('a.button.quiet.small', {href: link, target: '_blank', rel: 'noopener noreferrer nofollow'}, icon('external'), 'Open')),
        el('.request-parts',
            part('Request', request.requestHeaders, request.requestBody),
            part('Response', request.responseHeaders, request.responseBody)),
    ];
}

function part(name, headers, body) {
    const names = Object.keys(headers).slice(0, mostRows);
    const pretty = prettyJson(body);
    return el('section', el('h3', name),
        names.length ? el('dl.headers', names.map((key) => [el('dt', quoted(visible(key, 120))), el('dd', quoted(visible(asText(headers[key]), 2000)))]))
            : el('p.faint', 'No headers'),
        body ? [el('.body-line', el('span.faint', `Body, ${integer(body.length)} characters`), copyButton(() => pretty ?? body)),
            scrollable(pretty === null ? clippedText('pre.code', body, mostBody) : jsonView(pretty), `${name} body`)] : el('p.faint', 'No body'));
}
