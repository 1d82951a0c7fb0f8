// What is not a curve: bands of states, taps, requests, and the axis. Each lane can be placed over another span of time.

import {el, fill, quoted} from './dom.js';
import {showEvent} from './eventTables.js';
import {duration} from './format.js';
import {placeOver, share, ticks} from './timelineScale.js';
import {visible} from './text.js';

const shortestRequest = 60; // milliseconds: for one without a duration
const mostName = 40; // characters of a request
const rowHeight = 8; // pixels, in the lane of requests

/// Lanes are {name, track, place(span)}.
export function bandLane({name, pieces}) {
    const elements = pieces.map((piece) => el('span.band', {className: `band is-${piece.kind}`, title: piece.label}, quoted(piece.label)));
    return lane(name, 'bands', elements, (span) =>
        pieces.forEach((piece, index) => placeOver(elements[index], piece.from, piece.to, span)));
}

export function tapLane(taps) {
    const marks = taps.map((tap) => el('button.tap', {type: 'button', tabIndex: -1, 'aria-label': tapText(tap), title: tapText(tap),
        onclick: () => showEvent('taps', tap.time)}));
    return lane('Taps', 'marks', marks, (span) => taps.forEach((tap, index) => placeAt(marks[index], tap.time, span)));
}

export function requestLane(requests) {
    const marks = requests.map((request) => el('button', {type: 'button', tabIndex: -1, className: `request-mark ${request.failed ? 'is-failed' : request.unanswered ? 'is-unanswered' : ''}`,
        'aria-label': requestText(request), title: requestText(request), onclick: () => showEvent('requests', request.time)}));
    const row = rowsOf(requests);
    marks.forEach((mark, index) => { mark.style.top = `${row[index] * rowHeight}px`; });
    const requestsLane = lane('Requests', 'marks.is-requests', marks, (span) => requests.forEach((request, index) =>
        placeOver(marks[index], request.time, request.time + (request.duration ?? shortestRequest), span)));
    requestsLane.track.style.height = `${(Math.max(...row) + 1) * rowHeight}px`;
    return requestsLane;
}

export function sessionMarks(sessions) {
    const marks = sessions.map(() => el('span.session-mark'));
    return {elements: marks, place: (span) => sessions.forEach(({time}, index) => placeAt(marks[index], time, span))};
}

export function axisLane() {
    const track = el('.track.axis');
    return {name: '', track, place: (span) => fill(track, ticks(span, track.clientWidth).map(({time, text}) => {
        const label = el('span.tick', text);
        const part = share(time, span);
        label.style.left = `${part * 100}%`;
        label.classList.toggle('is-first', part < 0.04);
        label.classList.toggle('is-last', part > 0.96);
        return label;
    }))};
}

export function tapText(tap) {
    const what = visible([tap.property, tap.className].filter(Boolean).join(', '), 80);
    return ['Tap', what && `on ${what}`, tap.view && `in ${visible(tap.view, 60)}`].filter(Boolean).join(' ');
}

export function requestText(request, name = `${request.method} ${request.url}`) {
    const took = request.duration === null ? '' : `, ${duration(request.duration)}`;
    return visible(`${name}: ${request.status || 'no answer'}${took}`, 200);
}

/// The method and the path; the address as it stands where it is none.
export function requestName({method, url}) {
    let path = url;
    try {
        path = new URL(url).pathname;
    } catch {
        // the application wrote it in its own way
    }
    return visible(`${method} ${path}`, mostName);
}

function lane(name, kind, elements, place) {
    return {name, track: el(`.track.${kind}`, elements), place};
}

function placeAt(element, time, span) {
    const part = share(time, span);
    element.hidden = part < 0 || part > 1;
    element.style.left = `${part * 100}%`;
}

/// Requests at the same time lie below each other, in up to four rows.
function rowsOf(requests) {
    const ends = [0, 0, 0, 0];
    return requests.map(({time, duration: length}) => {
        const free = ends.findIndex((end) => end <= time);
        const row = free < 0 ? ends.indexOf(Math.min(...ends)) : free;
        ends[row] = time + (length ?? shortestRequest);
        return row;
    });
}
