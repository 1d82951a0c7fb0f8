// The report's first words: what, who, where and when.

import {ageElement} from './ages.js';
import {archivedTag} from './applicationNames.js';
import {el, quoted} from './dom.js';
import {localTime, parseTime, zonedTime} from './format.js';
import {asText, firstLine, mailtoLink, visible} from './text.js';

export const mostHeading = 160; // characters
const atOnce = 3600 * 1000; // milliseconds
const week = 7 * 24 * atOnce; // later, an age is only a date again

export function reportHead(answer, report) {
    const whole = firstLine(report.description);
    const line = visible(whole, mostHeading);
    const version = [asText(report.app_version), asText(report.build_version) && `(${asText(report.build_version)})`].filter(Boolean).join(' ');
    const system = [asText(report.os), asText(report.os_version)].filter(Boolean).join(' ');
    const device = [asText(report.device), system].filter(Boolean).join(', ');
    return el('header.report-head',
        el('h1', {dir: 'auto', className: !line ? 'is-empty' : whole.length > mostHeading ? 'is-clipped' : ''}, line || 'No description'),
        el('ul.report-facts',
            tester(asText(report.tester_email), `Your report: ${line}`),
            item('Application', visible(answer.bundle_id, 120), archivedTag(answer.bundle_id)),
            item('Version', visible(version, 60)),
            item('View', visible(report.current_view, 80)),
            item('Device', visible(device, 80)),
            times(parseTime(report.issue_reported_time), answer.received)));
}

/// When it was received is said where that was not at once: the device was offline, or its clock is wrong.
function times(reported, received) {
    return [
        reported !== null && el('li', el('span.faint', 'Reported'), moment(reported)),
        (reported === null || Math.abs(received - reported) > atOnce) && el('li', el('span.faint', 'Received'), moment(received)),
    ];
}

function moment(time) {
    const distance = Date.now() - time;
    return el('span', {title: zonedTime(time)}, localTime(time),
        distance > -atOnce && distance < week && [' (', ageElement(time, {words: true}), ')']);
}

function item(name, text, tag = null) {
    return text ? el('li', el('span.faint', name), el('span', quoted(text), tag)) : null;
}

function tester(address, subject) {
    if (!address)
        return null;
    const link = mailtoLink(address, subject);
    const shown = quoted(visible(address, 120));
    return el('li', el('span.faint', 'Tester'), link ? el('a', {href: link}, shown) : shown);
}
