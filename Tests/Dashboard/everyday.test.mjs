// An inbox in daily use: many reports, keys, small windows, and a receiver that is away for a while.

import assert from 'node:assert/strict';
import {after, before, test} from 'node:test';
import {checkPage, checkWidth, logIn, openBrowser, openInbox, openPage} from './browser.mjs';
import {picture, startReceiver} from './receiver.mjs';

const number = 60;
const phone = {width: 390, height: 844, hasTouch: true, isMobile: true};
let browser;
let receiver;
let page;

before(async () => {
    [browser, receiver] = await Promise.all([openBrowser(), startReceiver()]);
    for (let index = 1; index <= number; index++)
        await send(`Report number ${index}`, {app_version: index % 2 ? '1.0' : '2.0'});
    page = await openInbox(browser, receiver);
});
after(async () => {
    await browser?.close();
    await receiver?.stop();
});

const send = (description, more = {}) => receiver.application.send({description, device: 'x86_64', ...more}, {screenshot: picture});
const focused = () => page.evaluate(() => document.activeElement.querySelector('.row-summary')?.textContent);
const heading = (text) => page.getByRole('heading', {name: text, level: 1, exact: true}).waitFor();

test('the whole journey goes by keys, and comes back to where it began', async () => {
    for (const key of ['j', 'j', 'ArrowDown', 'k'])
        await page.keyboard.press(key);
    assert.equal(await focused(), `Report number ${number - 1}`);
    await page.keyboard.press('Enter');
    await heading(`Report number ${number - 1}`);
    await page.locator('main:focus').waitFor();
    await page.waitForSelector('[aria-label="Older report"][href]');
    await page.keyboard.press('j');
    await heading(`Report number ${number - 2}`);
    await page.waitForSelector('[aria-label="Newer report"][href]');
    await page.keyboard.press('k');
    await heading(`Report number ${number - 1}`);
    await page.keyboard.press('?');
    await page.getByRole('heading', {name: 'Keys'}).waitFor();
    await page.keyboard.press('Escape');
    await page.getByRole('heading', {name: 'Keys'}).waitFor({state: 'detached'});
    await page.keyboard.press('Escape');
    await page.locator('.row').first().waitFor();
    assert.equal(await focused(), `Report number ${number - 1}`);
});

test('filters and pages are steps of the history', async () => {
    await page.getByLabel('Next page').click();
    await page.getByText('51–60 of 60').waitFor();
    await page.getByLabel('Version').selectOption('2.0');
    await page.getByText('30 reports').waitFor();
    await page.goBack();
    await page.getByText('51–60 of 60').waitFor();
    await page.goBack();
    await page.getByText('1–50 of 60').waitFor();
});

test('a page past the end is the last one', async () => {
    await page.goto(`${receiver.dashboard}#/reports?page=9`);
    await page.getByText('51–60 of 60').waitFor();
    await page.goBack();
    await page.getByText('1–50 of 60').waitFor();
});

test('a search that fails leaves no rows of another, and is asked for again', async () => {
    const failing = await openInbox(browser, receiver);
    await failing.route(/api\/reports.*search=/, (route) => route.fulfill({status: 500, json: {error: 'Out of order'}}));
    await failing.getByLabel('Search the reports').fill('number 17');
    await failing.getByRole('alert').getByText('Out of order').waitFor();
    assert.equal(await failing.locator('.row').count(), 0);
    await failing.unrouteAll();
    await failing.locator('.row', {hasText: 'Report number 17'}).waitFor();
    assert.equal(await failing.getByRole('alert').count(), 0);
    await failing.context().close();
});

test('Enter leads to what the search finds, and a search is left with its page', async () => {
    const searching = await openInbox(browser, receiver);
    const field = searching.getByLabel('Search the reports');
    await field.fill('number 17');
    await field.press('Enter');
    await searching.locator('.row:focus', {hasText: 'Report number 17'}).waitFor();
    await searching.clock.install();
    await field.fill('number 18');
    await searching.goto(`${receiver.dashboard}#/account`);
    await searching.locator('.panel').first().waitFor();
    await searching.clock.runFor(1000);
    assert.match(searching.url(), /#\/account$/);
    await checkPage(searching);
    await searching.context().close();
});

test('what arrives while the list is scrolled waits for a key', async () => {
    await page.evaluate(() => scrollTo(0, 1000));
    await send('Just arrived');
    await page.getByRole('button', {name: '1 new report'}).waitFor();
    assert.equal(await page.evaluate(() => scrollY), 1000);
    await page.keyboard.press('n');
    await page.locator('.row.is-new', {hasText: 'Just arrived'}).waitFor();
});

test('a receiver that is away is said to be, and the list goes on by itself', async () => {
    await page.context().setOffline(true);
    await page.getByText('The receiver does not answer.').waitFor();
    await send('Sent in the meantime');
    await page.context().setOffline(false);
    await page.locator('.row', {hasText: 'Sent in the meantime'}).waitFor();
    await page.locator('.connection').waitFor({state: 'hidden'});
    await checkPage(page);
});

test('the receiver is asked for the filters once for each arrival, and not again for what it refuses', async () => {
    await send('v'.repeat(200));
    const asking = await openInbox(browser, receiver);
    const asked = [];
    const count = (pattern) => asked.filter((url) => pattern.test(url)).length;
    asking.on('request', (request) => asked.push(request.url()));
    await asking.clock.install();
    await asking.goto(`${receiver.dashboard}#/account`);
    await asking.locator('.panel').first().waitFor();
    await asking.goto(`${receiver.dashboard}#/reports?search=number+17&time=7d`);
    await asking.locator('.row', {hasText: 'Report number 17'}).waitFor();
    await asking.getByLabel('Time').selectOption('between');
    await asking.waitForURL(/search=number\+17$/);
    await send('w'.repeat(201));
    const before = count(/size=1$/);
    while (count(/size=1$/) < before + 4)
        await asking.clock.runFor(1000);
    assert.equal(count(/api\/filters/), 2, 'at first, and for what arrived');
    assert.ok(await asking.getByLabel('From').isVisible(), 'the fields wait for a day');
    await asking.goto(`${receiver.dashboard}#/reports?bundle_id=.none`);
    await asking.getByRole('alert').waitFor();
    asked.length = 0;
    await asking.clock.runFor(10000);
    await asking.getByRole('button', {name: 'Try again'}).click();
    await asking.getByRole('alert').waitFor();
    assert.equal(count(/api\/reports/), 1);
    for (const [search, words] of [['vvv', 'v'.repeat(200)], ['www', 'w'.repeat(200) + '…']]) {
        await asking.goto(`${receiver.dashboard}#/reports?search=${search}`);
        await asking.getByText(words, {exact: true}).waitFor();
    }
    await asking.context().close();
});

test('a session that ends in the middle says so, and goes on where it was', async () => {
    const ending = await openInbox(browser, receiver);
    const words = ending.getByRole('status').getByText('Your session has ended. Log in to go on.');
    await ending.goto(`${receiver.dashboard}#/reports?search=number+17`);
    await ending.locator('.row', {hasText: 'Report number 17'}).waitFor();
    await ending.context().clearCookies();
    await words.waitFor();
    await logIn(ending);
    await ending.locator('.row', {hasText: 'Report number 17'}).waitFor();
    const other = await ending.context().newPage();
    await other.goto(`${receiver.dashboard}#/clients`);
    await other.getByRole('button', {name: 'New client'}).waitFor();
    await ending.goto(`${receiver.dashboard}#/account`);
    await ending.getByRole('button', {name: 'Log out'}).click();
    await ending.getByLabel('Password', {exact: true}).waitFor();
    assert.equal(await words.count(), 0, 'who leaves knows it');
    await logIn(ending);
    await ending.locator('.panel').first().waitFor();
    await other.getByRole('button', {name: 'New client'}).click();
    await other.getByRole('button', {name: 'Create', exact: true}).click();
    await other.getByRole('button', {name: 'I have it'}).click();
    for (const [tab, id] of [[ending, 3], [other, 4]]) {
        await tab.goto(`${receiver.dashboard}#/reports/${id}`);
        await tab.locator(`.report[data-id="${id}"]`).waitFor();
    }
    await other.goto(`${receiver.dashboard}#/reports?sort=received`);
    await other.reload();
    await other.locator('.row').first().waitFor();
    assert.deepEqual(await other.locator('.row:not(.is-unread)').evaluateAll((rows) => rows.map(({dataset}) => dataset.id)), ['3', '4']);
    await checkPage(ending);
    await ending.context().close();
});

test('nothing is wider than a phone', async () => {
    const small = await openInbox(browser, receiver, phone);
    for (const [place, sign] of [['reports', '.row'], ['reports/1', '.facts'], ['applications', '.cards'], ['clients', '.cards'], ['account', '.panel']]) {
        await small.goto(`${receiver.dashboard}#/${place}`);
        await small.locator(sign).first().waitFor();
        await checkWidth(small);
    }
    const {id} = await send('With a request', {log: {network_requests: [{method: 'GET', url: `https://example.org/${'long'.repeat(100)}`,
        response_body: 'the answer', timestamp: '2026-01-02T03:04:05.678Z'}]}});
    await small.goto(`${receiver.dashboard}#/reports/${id}`);
    await small.locator('.request button').tap();
    await small.getByText('the answer').waitFor();
    assert.ok(await small.locator('.table-scroll').evaluate((place) => place.scrollWidth <= place.clientWidth), 'the table fits its place');
    await checkPage(small);
    await small.context().close();
});

test('what failed last is named, and a tap shows a moment of the black box until Escape', async () => {
    const small = await openInbox(browser, receiver, phone);
    const at = (second) => `2026-01-02T03:04:${second}.000Z`;
    const failing = (url, second) => ({method: 'PUT', url, statuc_code: '500', timestamp: at(second)});
    const {id} = await send('With a black box', {issue_reported_time: at(40), log: {network_requests: [failing('/not an address', 20),
        failing('https://example.org/orders/7?key=secret', 30), {method: 'GET', url: 'https://example.org/', statuc_code: '200', timestamp: at(35)}]},
    blackbox: {cpu_usage_history: [{value: '5', time_occurred: at(10)}], network_usage_history: [{type: 'offline', name: '', time_occurred: at(10)}]}});
    await small.goto(`${receiver.dashboard}#/reports/${id}`);
    await small.getByText('2 of 3 requests failed, last: PUT /orders/7 → 500, 10 s before', {exact: true}).waitFor();
    await small.locator('.track.bands').first().tap();
    await small.locator('.hair').waitFor();
    await small.locator('.readout', {hasText: 'Offline'}).waitFor();
    await small.keyboard.press('Escape');
    await small.locator('.hair').waitFor({state: 'hidden'});
    await checkPage(small);
    await small.context().close();
});

test('the page is there soon', async (t) => {
    await page.goto(receiver.dashboard);
    await page.reload();
    await page.locator('.row').nth(49).waitFor();
    const [loaded, shown] = await page.evaluate(() => [performance.getEntriesByType('navigation')[0].domContentLoadedEventEnd, performance.now()]);
    t.diagnostic(`DOMContentLoaded after ${Math.round(loaded)} ms, a list of 50 reports seen after ${Math.round(shown)} ms`);
});

test('who guesses passwords has to wait, and is told how long', async () => {
    const guessing = await openPage(browser, receiver);
    for (let attempt = 0; attempt < 6 && await guessing.getByText(/Too many attempts/).count() === 0; attempt++) {
        const answered = guessing.waitForResponse(/api\/session$/);
        await logIn(guessing, `guess ${attempt}`);
        await (await answered).finished();
        await guessing.getByText(/not the password|Too many attempts/).waitFor();
    }
    await guessing.getByText(/Too many attempts. Try again in \d+ s/).waitFor();
    assert.ok(await guessing.getByRole('button', {name: 'Log in'}).isDisabled());
    await checkPage(guessing);
});
