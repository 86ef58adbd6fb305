import java.io.ByteArrayOutputStream;
import java.io.PrintStream;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.BrokenBarrierException;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.CyclicBarrier;
import java.util.concurrent.TimeUnit;
import tovu.local.delivery.CallbackDelivery;

/** What the delivery of callbacks prints for the author of a federate, and for whom. */
final class DeliveryTest {
    private static final ByteArrayOutputStream PRINTED = new ByteArrayOutputStream();

    private final CallbackDelivery delivery = CallbackDelivery.toContext(1, (method, message) -> { }, () -> null);
    private final List<String> delivered = new ArrayList<>();

    public static void main(String[] arguments) {
        System.setErr(new PrintStream(PRINTED, true));
        Harness.run(DeliveryTest::reminder, DeliveryTest::failure, () -> circle(2), () -> circle(4));
    }

    private void post(String name) {
        delivery.post(to -> delivered.add(name));
    }

    /** Only who has callbacks waiting and never evoked any is reminded, and that once. */
    private static void reminder() throws Exception {
        DeliveryTest forgetful = new DeliveryTest();
        forgetful.post("a");
        forgetful.post("b");
        DeliveryTest evoking = new DeliveryTest();
        evoking.post("a");
        evoking.delivery.evoke(0);
        evoking.post("b");
        DeliveryTest disabling = new DeliveryTest();
        disabling.delivery.setEnabled(false);
        disabling.post("a");
        for (int i = 0; i < 200 && PRINTED.size() == 0; ++i) {
            Thread.sleep(100);
        }
        Thread.sleep(200); // for reminders that should not come
        String text = PRINTED.toString();
        Harness.that(text.startsWith("A federate that is not joined has callbacks waiting and has evoked none for 1 s"),
                text);
        Harness.equal(text.lines().count(), 1L);
    }

    /** Callbacks that end the next one's delivery while all of them run: one goes on, and so all do. */
    private static void circle(int size) throws Exception {
        List<CallbackDelivery> deliveries = new ArrayList<>();
        CyclicBarrier allInside = new CyclicBarrier(size);
        CountDownLatch returned = new CountDownLatch(size);
        for (int i = 0; i < size; ++i) {
            int next = (i + 1) % size;
            CallbackDelivery delivery = CallbackDelivery.toContext(1, (method, message) -> { }, () -> null);
            deliveries.add(delivery);
            delivery.post(to -> {
                try {
                    allInside.await();
                } catch (InterruptedException | BrokenBarrierException e) {
                    throw new IllegalStateException(e);
                }
                deliveries.get(next).close();
                deliveries.get(next).awaitEnd();
                returned.countDown();
            });
        }
        deliveries.forEach(CallbackDelivery::deliverImmediately);
        Harness.that(returned.await(10, TimeUnit.SECONDS), "the callbacks wait for each other");
    }

    /** A fault of the core's own is told, and costs no callback but the one that it struck. */
    private static void failure() {
        PRINTED.reset();
        DeliveryTest test = new DeliveryTest();
        test.delivery.post(to -> {
            throw new IllegalStateException("on purpose");
        });
        test.post("next");
        test.delivery.evokeMultiple(0, 1);
        Harness.equal(PRINTED.toString().strip(), "A federate that is not joined cannot be told something: "
                + "java.lang.IllegalStateException: on purpose");
        Harness.equal(test.delivered, List.of("next"));
    }
}
